#include <fenv.h>

#include <cmath>
#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "failure/FailureGuard.h"
#include "failure/FailureMessage.h"

namespace curvemill {
namespace {

// The report of a fault in `where`, with `due` (nullptr: no reason line).
std::string report(const std::string& where, const char* due) {
    return "AN ERROR OCCURED IN <" + where + "> FUNCTION.\n" +
           (due != nullptr ? "IT IS DUE TO <" + std::string(due) + ">\n" : "") +
           "THE APPLICATION WILL RETURN TO TITLE PAGE.\nPLEASE REPORT THE ERROR TO THE AUTHORS "
           "AT\n<support@curvemill.org>";
}

TEST(FailureMessage, EachFormReadsLetterForLetter) {
    static const char kLookalikeTest[] = "TEST";  // same text, different constant
    struct Row {
        ProcedureName name;
        FailureCode code;
        std::string expected;
    };
    const std::vector<Row> rows{
        {kProcTwoDGraphDialog, kCodeInvalidFloat,
         report("Two D Graph Dialog Procedure", "Invalid Float Operation")},
        {kProcMainWindow, kCodeFloatUnderflow, report("Main Window Procedure", "Float Underflow")},
        {kProcWinMain, kCodeAccessViolation, report("WinMain", "")},
        {kProcLogBaseDialog, 0, report("Log Base Dialog Procedure", nullptr)},
        {kProcTest, kCodeInvalidFloat,
         "THIS IS A DEMO OF EXCEPTION HANDLING\nTHE APPLICATION WILL RETURN TO TITLE PAGE"},
        {kLookalikeTest, 0, report("TEST", nullptr)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.expected);
        EXPECT_EQ(failureMessage(row.name, row.code), row.expected);
    }
}

// 0/0 or 1e-300 squared with that trap on: a real FE_INVALID or FE_UNDERFLOW.
void trap(int exception) {
    feenableexcept(exception);
    volatile double zero = 0.0;
    volatile double tiny = 1e-300;
    volatile double result = exception == FE_INVALID ? zero / zero : tiny * tiny;
    (void)result;
}

class FaultTranslationTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { installFaultTranslation(); }
};

TEST_F(FaultTranslationTest, RealFaultsAndThrowsReachTheGuardWithTheirCodes) {
    struct Row {
        const char* what;
        std::function<void()> body;
        FailureCode code;
    };
    const std::vector<Row> rows{
        {"invalid operation", [] { trap(FE_INVALID); }, kCodeInvalidFloat},
        {"underflow", [] { trap(FE_UNDERFLOW); }, kCodeFloatUnderflow},
        {"access violation",
         [] {
             volatile int* volatile nowhere = nullptr;
             *nowhere = 1;
         },
         kCodeAccessViolation},
        {"illegal instruction", [] { std::raise(SIGILL); }, kCodeIllegalInstruction},
        {"thrown code", [] { throw Fault{kCodeFloatUnderflow}; }, kCodeFloatUnderflow},
        {"thrown exception", [] { throw std::runtime_error("x"); }, 0},
        {"thrown int", [] { throw 7; }, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const std::optional<Failure> failure = catchFailure(kProcTwoDGraphDialog, row.body);
        ASSERT_TRUE(failure.has_value());
        EXPECT_EQ(failure->name, kProcTwoDGraphDialog);
        EXPECT_EQ(failure->code, row.code);
        EXPECT_EQ(innermostGuard(), nullptr);
        // Traps must be off again, or the next ordinary NaN would end the program.
        EXPECT_EQ(fegetexcept(), 0);
    }
}

TEST_F(FaultTranslationTest, InnermostGuardCatchesAndOuterGoesOn) {
    bool outerWentOn = false;
    std::optional<Failure> inner;
    const std::optional<Failure> outer = catchFailure(kProcMainWindow, [&] {
        inner = catchFailure(kProcMathDialog, [] { std::raise(SIGSEGV); });
        outerWentOn = true;
    });
    EXPECT_FALSE(outer.has_value());
    ASSERT_TRUE(inner.has_value());
    EXPECT_EQ(inner->name, kProcMathDialog);
    EXPECT_TRUE(outerWentOn);
}

// A guard leaves traps masked, and so does the engine's arithmetic: overflow, 0/0 and underflow
// give inf, NaN or 0 and the indefinite flag, never a report.
TEST_F(FaultTranslationTest, OrdinaryFormulasNeverFail) {
    struct Row {
        const char* text;
        double from, to;
    };
    const std::vector<Row> rows{{"e^(-x^2)", -100.0, 100.0},
                                {"e^1000-e^1000", -1.0, 1.0},
                                {"1/0*0", -1.0, 1.0},
                                {"tan(x)^9*e^(x*x)", -50.0, 50.0},
                                {"ln(x)*Sqr(x)/x", -5.0, 5.0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, row.text, FormulaMode::Function));
        const std::optional<Failure> failure = catchFailure(kProcTwoDGraphDialog, [&] {
            for (int i = 0; i <= 20000; ++i) {
                formula.evaluate(row.from + (row.to - row.from) * i / 20000.0);
            }
        });
        EXPECT_FALSE(failure.has_value());
    }
}

class RecordingPlatform : public FailurePlatform {
  public:
    void hideWindows() override { steps.push_back("hide"); }
    void showErrorMessage(const std::string& text) override { steps.push_back("box:" + text); }
    std::string executablePath() override { return "/opt/curvemill/curvemill"; }
    void startDetached(const std::string& program) override { steps.push_back("start:" + program); }
    void focusMainWindow() override { steps.push_back("focus"); }
    void exitProcess(int code) override { steps.push_back("exit:" + std::to_string(code)); }
    std::vector<std::string> steps;
};

TEST(RestartingFailureReporter, HidesTellsRestartsFocusesAndExitsInThatOrder) {
    installFaultTranslation();
    RecordingPlatform platform;
    RestartingFailureReporter reporter(platform);
    EXPECT_FALSE(runGuarded(kProcTest, reporter, [] { throw 1; }));
    const std::vector<std::string> expected{
        "hide",
        "box:THIS IS A DEMO OF EXCEPTION HANDLING\nTHE APPLICATION WILL RETURN TO TITLE PAGE",
        "start:/opt/curvemill/curvemill", "focus", "exit:0"};
    EXPECT_EQ(platform.steps, expected);
}

// A trap signalled while the report's box waits (as over an idle About box) reaches a guard inside
// the box's loop and so the reporter again: told once on stderr in plain words, and the program
// still restarts.
TEST(RestartingFailureReporter, AFaultDuringTheReportIsToldOnStderrAndStillRestarts) {
    installFaultTranslation();
    struct FaultingBox : RecordingPlatform {
        FailureReporter* reporter = nullptr;
        void showErrorMessage(const std::string& text) override {
            RecordingPlatform::showErrorMessage(text);
            runGuarded(kProcAboutDialog, *reporter, [] { trap(FE_INVALID); });
        }
    } platform;
    RestartingFailureReporter reporter(platform);
    platform.reporter = &reporter;
    ::testing::internal::CaptureStderr();
    runGuarded(kProcMainWindow, reporter, [] { throw 1; });
    const std::string said = ::testing::internal::GetCapturedStderr();
    ASSERT_GE(platform.steps.size(), 4u);
    EXPECT_EQ(platform.steps[2], "start:/opt/curvemill/curvemill");
    EXPECT_EQ(platform.steps[3], "exit:0");
    EXPECT_NE(said.find("second fault (code 0xC0000090 in About Dialog Procedure)"),
              std::string::npos)
        << said;
    EXPECT_EQ(said.find('\n'), said.size() - 1);  // one line
}

}  // namespace
}  // namespace curvemill
