// Graph documents: each kind read, saved and read again; each refusal with its message; the state
// the window keeps captured and put back.
#include <cstring>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "document/DocumentState.h"
#include "document/ui/GraphDocumentFile.h"
#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"
#include "graph3d/SurfaceRotation.h"
#include "graph3d/SurfaceScene.h"
#include "tests/support/TempDirectory.h"
#include "twovar/TwoVariableSettings.h"

namespace curvemill {
namespace {

std::string seed(const std::string& kind) {
    std::ifstream in(std::filesystem::path(CURVEMILL_DOCUMENT_SEEDS) / (kind + ".curvemill"),
                     std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The seeds were written by graphDocumentJson with every setting away from its default, so a
// member that is not read, or written differently, changes the bytes.
TEST(GraphDocumentFile, EachKindOpensSavesTheSameBytesAndOpensAgainTheSame) {
    const std::pair<const char*, DocumentKind> kinds[] = {{"function", DocumentKind::kFunction},
                                                          {"equation", DocumentKind::kEquation},
                                                          {"surface", DocumentKind::kSurface},
                                                          {"curve", DocumentKind::kCurve}};
    testing::TempDirectory folder;
    for (const auto& [name, kind] : kinds) {
        SCOPED_TRACE(name);
        const std::string bytes = seed(name);
        const DocumentReading opened = parseGraphDocument(bytes);
        ASSERT_TRUE(opened.document) << opened.message;
        EXPECT_EQ(opened.document->kind, kind);
        const auto path = folder.path() / (std::string(name) + kGraphFileSuffix);
        ASSERT_EQ(saveGraphDocument(path, *opened.document), std::nullopt);
        EXPECT_EQ(folder.read(path.filename().string()), bytes);
        const DocumentReading again = readGraphDocument(path);
        ASSERT_TRUE(again.document) << again.message;
        EXPECT_TRUE(*again.document == *opened.document);
    }
}

TEST(GraphDocumentFile, NumbersReadBackBitForBit) {
    GraphDocument document = *parseGraphDocument(seed("function")).document;
    for (const double value : {0.1, 1.0 / 3, 5e-324, 2.2250738585072014e-308,
                               1.7976931348623157e308, 123456789012345680.0}) {
        SCOPED_TRACE(value);
        document.function.view.scrollX = value;
        const DocumentReading read = parseGraphDocument(graphDocumentJson(document));
        ASSERT_TRUE(read.document) << read.message;
        EXPECT_EQ(std::memcmp(&read.document->function.view.scrollX, &value, sizeof value), 0);
    }
}

// Each row edits one seed once: the file is refused with the field and the reason.
TEST(GraphDocumentFile, RefusesWhatAWindowWouldRefuseNamingTheField) {
    const struct {
        const char* seed;
        const char* from;
        const char* to;
        const char* message;
    } rows[] = {
        {"function", "{", "[", "file: not JSON: missing value separator at byte 16"},
        {"function", "curvemill-graph", "curvemill-graph2",
         "format: not a CurveMill graph (\"curvemill-graph2\" expected \"curvemill-graph\")"},
        {"function", "\"version\": 1", "\"version\": 2",
         "version: 2 is newer than this program reads (1)"},
        {"function", "\"version\": 1", "\"version\": 1.5", "version: must be a whole number"},
        {"function", "\"kind\": \"function\"", "\"kind\": \"spiral\"",
         "kind: must be one of function, equation, surface, curve"},
        {"function", "\"points\"", "\"pointz\"", "function.points: missing (a whole number)"},
        {"function", "\"grid\": true", "\"grid\": 1", "function.look.grid: must be true or false"},
        {"function", "\"logBase\": 2", "\"logBase\": -2",
         "logBase: LOG BASE MUST BE A POSITIVE NUMBER"},
        {"function", "\"formula\": \"sin(x)/x*80+log(x)\"", "\"formula\": \"sin(x\"",
         "function.formula: ERROR IN FORMULA EDIT BOX:\nBRACKETS DO NOT MATCH"},
        {"function", "\"secondFormula\": \"x^2/4\"", "\"secondFormula\": \"sin (x)/x*80+log(x)\"",
         "function.secondFormula: YOU MUST SELECT A DIFFERENT FUNCTION"},
        {"function", "\"begin\": \"-4*pi\"", "\"begin\": \"30\"",
         "function.x.begin: X_BEG MUST BE LESS THAN X_END"},
        {"function", "\"begin\": \"1\"", "\"begin\": \"-20\"",
         "function.integral.range: X_BEGIN IS OUTSIDE THE RANGE OF FUNCTION"},
        {"function", "\"points\": 120000", "\"points\": 125000",
         "function.points: must be a multiple of 10000 from 10000 to 400000, not 125000"},
        {"function", "\"xZoom\": 4", "\"xZoom\": 1e6",
         "function.view.xZoom: must be from 1/256 to 65536"},
        {"function", "\"maxYRatio\": 7", "\"maxYRatio\": 21",
         "function.look.maxYRatio: must be from 1 to 20, not 21"},
        {"function", "\"displayOrder\": \"Fifd\"", "\"displayOrder\": \"FifF\"",
         "function.look.displayOrder: must hold each of f, d, i and F once, not \"FifF\""},
        {"equation", "\"end\": \"1.5\"", "\"end\": \"-1.5\"",
         "equation.y.end: Y BEG MUST BE LESS THAN Y END"},
        {"equation", "\"precisionDigits\": 8", "\"precisionDigits\": 16",
         "equation.precisionDigits: must be from 1 to 15, not 16"},
        {"surface", "\"yPoints\": 300", "\"yPoints\": 600",
         "surface.yPoints: must be a multiple of 100 from 100 to 500, not 600"},
        {"surface", "\"begin\": \"-pi\"", "\"begin\": \"-p\"",
         "surface.y.begin: ERROR IN Y BEG EDIT BOX:\nINVALID ENTRY"},
        {"surface", "[30, -45, 180]", "[30, -45, -180]",
         "surface.angles: must be degrees above -180, at most 180"},
        {"surface", "\"mode\": \"lines\"", "\"mode\": \"dots\"",
         "surface.mode: must be one of polygons, lines, pixels"},
        {"curve", "\"second\": \"sin(2*t)\"", "\"second\": \"sin(2*x)\"",
         "curve.second: ERROR IN Y(T) EDIT BOX:\nINVALID ENTRY"},
        {"curve", "\"stretches\": []", "\"stretches\": [1]",
         "curve.view.stretches[0]: must be an object"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.to);
        std::string edited = seed(row.seed);
        const auto at = edited.find(row.from);
        ASSERT_NE(at, std::string::npos);
        edited.replace(at, std::strlen(row.from), row.to);
        const DocumentReading read = parseGraphDocument(edited);
        EXPECT_FALSE(read.document);
        EXPECT_EQ(read.message, row.message);
    }
    EXPECT_EQ(parseGraphDocument(std::string(kMostDocumentBytes + 1, ' ')).message,
              "file: larger than 1 MB (1048577 bytes)");
    EXPECT_EQ(readGraphDocument("/dev/zero").message, "file: not a regular file");
}

TEST(GraphDocumentFile, SavingADocumentThatWouldNotOpenKeepsTheOldFile) {
    testing::TempDirectory folder;
    const auto path = folder.path() / "kept.curvemill";
    GraphDocument document = *parseGraphDocument(seed("surface")).document;
    ASSERT_EQ(saveGraphDocument(path, document), std::nullopt);
    document.surface.ambient = 55;
    EXPECT_EQ(saveGraphDocument(path, document),
              "surface.ambient: must be a multiple of 10 from 0 to 100");
    EXPECT_EQ(folder.read("kept.curvemill"), seed("surface"));
}

// Captured from the core state after applying, every section's state is the document's again.
TEST(GraphDocumentState, ApplyThenCaptureGivesTheDocumentBack) {
    const GraphDocument function = *parseGraphDocument(seed("function")).document;
    GraphView view;
    setViewSize(view, 900, 600);
    StretchStack stretches;
    applyFlatView(function.function.view, view, stretches);
    EXPECT_TRUE(captureFlatView(view, stretches) == function.function.view);
    TwoDGraph graph;
    TwoDSettings settings;
    applyFlatLook(function.function.look, settings, graph, view);
    EXPECT_TRUE(captureFlatLook(settings, view) == function.function.look);

    const SurfaceSection surface = parseGraphDocument(seed("surface")).document->surface;
    SurfaceScene scene;
    RotationAngles angles;
    applySurfaceLook(surface, scene, angles);
    SurfaceSection captured = captureSurface({}, scene, angles);
    // The entries come from the input window's settings, the Z-limit step from a computed grid.
    captured.formula = surface.formula;
    captured.x = surface.x;
    captured.y = surface.y;
    captured.xPoints = surface.xPoints;
    captured.yPoints = surface.yPoints;
    captured.zLimitStep = surface.zLimitStep;
    EXPECT_TRUE(captured == surface);
}

// A range known only as a value (the curve's t range, a captured graph) is saved as a text the
// boxes read back as that very value.
TEST(GraphDocumentState, NumberTextsReadBackAsTheSameValue) {
    const auto formula = std::make_unique<Formula>();
    for (const double value : {0.1, -6.283185307179586, 1e-7, 123456.789, 1e20}) {
        SCOPED_TRACE(value);
        const NumberReading read = readNumberEntry(*formula, numberEntryText(value), "X_BEG");
        ASSERT_TRUE(read.ok) << read.message;
        EXPECT_EQ(read.value, value);
    }
    EXPECT_EQ(numberEntryText(1e300), "");
}

}  // namespace
}  // namespace curvemill
