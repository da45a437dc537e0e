#include <cstdio>
#include <memory>
#include <string>

// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "cli/Command.h"
#include "cli/GraphArguments.h"
#include "cli/OutputFile.h"
#include "cli/Printable.h"
#include "graph2d/GraphView.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "graph2d/ui/GraphPainter.h"

namespace curvemill::cli {
namespace {

constexpr int kSmallestSide = 200;
constexpr int kLargestSide = 16384;

CommandSyntax plotSyntax() {
    CommandSyntax syntax{
        "plot",
        "Samples FORMULA over [A, B] as the Function dialog does and draws the graph into a PNG\n"
        "image, as the program draws it, with the whole Y range fitted to the image height.",
        "FORMULA",
        1,
        64,
        graphOptions(),
        "Options may come before or after FORMULA. A file is replaced atomically; a device or\n"
        "FIFO is written straight through.\n"
        "Exit status: 0 written, 1 an entry refused (the dialog's message is printed) or the\n"
        "file could not be written, 2 wrong command line.\n"};
    syntax.options.push_back({"second", "F", "a second function drawn beside the first"});
    syntax.options.push_back({"derivative", "", "also draw the derivative curve"});
    syntax.options.push_back({"integral-curve", "", "also draw the integral curve"});
    syntax.options.push_back({"grid", "", "draw the grid lines"});
    syntax.options.push_back({"no-smooth", "", "draw the curves without antialiasing"});
    syntax.options.push_back({"size", "WxH", "image size in pixels (default 1024x768)"});
    syntax.options.push_back({"output", "FILE", "the PNG file to write (also -o FILE)"});
    return syntax;
}

bool readSize(const std::optional<std::string>& value, int& width, int& height, std::ostream& err) {
    if (!value) {
        return true;
    }
    const std::size_t by = value->find('x');
    if (by != std::string::npos) {
        const std::optional<long> w = plainInteger(std::string_view(*value).substr(0, by));
        const std::optional<long> h = plainInteger(std::string_view(*value).substr(by + 1));
        if (w && h && *w >= kSmallestSide && *h >= kSmallestSide && *w <= kLargestSide &&
            *h <= kLargestSide) {
            width = static_cast<int>(*w);
            height = static_cast<int>(*h);
            return true;
        }
    }
    err << "curvemill-cli plot: --size must be WIDTHxHEIGHT with each side from " << kSmallestSide
        << " to " << kLargestSide << ", not " << quoted(*value) << "\n";
    return false;
}

// While it starts, Qt looks for a Flatpak marker in the runtime folder, whatever the platform,
// and warns when XDG_RUNTIME_DIR is unset (cron, ssh, containers). Nothing here uses that folder,
// so that one warning is dropped; every other message is written as Qt would write it.
void dropRuntimeFolderWarning(QtMsgType type, const QMessageLogContext& context,
                              const QString& message) {
    if (type == QtWarningMsg && message.startsWith(u"QStandardPaths: XDG_RUNTIME_DIR not set")) {
        return;
    }
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

// Fonts need an application object, but a command-line program needs no window system: the
// offscreen platform serves unless the user chose another.
std::unique_ptr<QGuiApplication> ensureGuiApplication() {
    if (QGuiApplication::instance() != nullptr) {
        return nullptr;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    static int argc = 1;
    static char name[] = "curvemill-cli";
    static char* argv[] = {name, nullptr};
    const QtMessageHandler previous = qInstallMessageHandler(dropRuntimeFolderWarning);
    auto app = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(previous);
    return app;
}

// The image as PNG bytes, or nothing when the encoder fails.
std::optional<std::string> encodePng(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG")) {
        return std::nullopt;
    }
    return bytes.toStdString();
}

int runPlot(const ParsedArguments& parsed, std::ostream& out, std::ostream& err) {
    ParsedArguments arguments = parsed;
    const CommandSyntax syntax = plotSyntax();
    if (!parseTrailingOptions(syntax, arguments, err)) {
        return kExitUsage;
    }
    if (arguments.helpRequested) {  // "--help" after FORMULA
        out << usageText(syntax);
        return kExitOk;
    }
    const auto output = arguments.value("output");
    if (!output) {
        err << "curvemill-cli plot: -o FILE is required\n";
        return kExitUsage;
    }
    int width = 1024;
    int height = 768;
    const auto request = graphRequest(arguments, "plot", err);
    if (!request || !readSize(arguments.value("size"), width, height, err)) {
        return kExitUsage;
    }
    Formula formula;
    TwoDGraph graph;
    if (const auto refusal = computeGraph(*request, formula, graph)) {
        out << *refusal << '\n';
        return kExitRefused;
    }

    const auto app = ensureGuiApplication();
    GraphView view;
    view.gridOn = arguments.flag("grid");
    view.smoothLines = !arguments.flag("no-smooth");
    setViewSize(view, width, height);
    resetView(view, graph);
    fitGraphHeight(view);
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        drawGraph(painter, graph, view);
    }
    const std::optional<std::string> png = encodePng(image);
    const std::optional<std::string> failure =
        png ? writeOutputFile(*output, *png) : std::optional<std::string>("PNG encoding failed");
    if (failure) {
        out << "CANNOT WRITE " << quoted(*output) << ": " << *failure << '\n';
        return kExitRefused;
    }
    return kExitOk;
}

}  // namespace

Command plotCommand() {
    return {plotSyntax(), runPlot};
}

}  // namespace curvemill::cli
