#include "cli/ImageSetup.h"

#include <cstdio>

#include <QGuiApplication>

#include "cli/Arguments.h"
#include "cli/Printable.h"

namespace curvemill::cli {

namespace {
constexpr int kSmallestSide = 200;
constexpr int kLargestSide = 16384;
}  // namespace

OptionSpec imageSizeOption() {
    return {"size", "WxH",
            "image size in pixels, each side 200 to 16384 (default 1024x768);\n"
            "drawing takes 4 bytes of memory a pixel, 7 for a .bmp\n"
            "(16384x16384: 1.1 GB, as a .bmp 1.9 GB)"};
}

bool readImageSize(const std::optional<std::string>& value, int& width, int& height,
                   UsageErrors& usage) {
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
    usage.report() << "--size must be WIDTHxHEIGHT with each side from " << kSmallestSide << " to "
                   << kLargestSide << ", not " << quoted(*value) << "\n";
    return false;
}

namespace {

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

}  // namespace

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

}  // namespace curvemill::cli
