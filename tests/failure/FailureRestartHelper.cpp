// Test helper: with "fault" it faults inside a window's event handling and goes through the real
// report (box answered by a timer, restart, exit); started again without arguments it writes the
// marker file named by CURVEMILL_TEST_MARKER, showing that the restart really happened.
#include <cstdlib>
#include <fstream>

#include <QTimer>
#include <QWidget>

#include "failure/FaultTranslation.h"
#include "failure/ui/GuardedApplication.h"
#include "failure/ui/QtFailurePlatform.h"
#include "tests/support/ModalAnswer.h"

namespace {

class FaultingWindow : public QWidget, public curvemill::FailureScope {
  public:
    curvemill::ProcedureName procedureName() const override { return curvemill::kProcMainWindow; }

  protected:
    void timerEvent(QTimerEvent*) override {
        int* volatile nowhere = nullptr;
        *static_cast<volatile int*>(nowhere) = 1;
    }
};

}  // namespace

int main(int argc, char* argv[]) {
    const char* marker = std::getenv("CURVEMILL_TEST_MARKER");
    if (marker == nullptr) {
        return 2;
    }
    if (argc < 2 || std::string(argv[1]) != "fault") {
        std::ofstream(marker) << "restarted";
        return 0;
    }
    curvemill::installFaultTranslation();
    curvemill::GuardedApplication app(argc, argv);
    curvemill::QtFailurePlatform platform;
    curvemill::RestartingFailureReporter reporter(platform);
    app.setFailureReporter(&reporter);

    FaultingWindow window;
    platform.addWindowHider([&window] { window.hide(); });
    window.show();
    curvemill::testing::ModalAnswer answer;
    answer.answered = [&answer, marker] {
        std::ofstream(std::string(marker) + ".box")
            << answer.caption.toStdString() << "|" << answer.ownerless << "|"
            << answer.text.toStdString();
    };
    window.startTimer(10);
    app.exec();
    return 3;  // the report ends the process with 0 before the loop could return
}
