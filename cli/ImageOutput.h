// What the commands that draw into a PNG share: the --size option, a Qt application without a
// window system, and the PNG encoding.
#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

class QGuiApplication;
class QImage;

namespace curvemill::cli {

inline constexpr int kSmallestSide = 200;
inline constexpr int kLargestSide = 16384;

// Reads --size WIDTHxHEIGHT into width and height (left as they are when absent); false after
// writing a usage message naming `command` to `err`.
bool readSize(const std::optional<std::string>& value, int& width, int& height,
              std::string_view command, std::ostream& err);

// Fonts need an application object, but a command-line program needs no window system: the
// offscreen platform serves unless the user chose another. Null when one exists already.
std::unique_ptr<QGuiApplication> ensureGuiApplication();

// The image as PNG bytes, or nothing when the encoder fails.
std::optional<std::string> encodePng(const QImage& image);

}  // namespace curvemill::cli
