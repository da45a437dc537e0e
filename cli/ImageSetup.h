// What the commands that draw images share: the application object fonts and painters need and
// the --size option.
#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

class QGuiApplication;

namespace curvemill::cli {

// A QGuiApplication on the offscreen platform (unless the user chose another), or nothing when
// one exists already.
std::unique_ptr<QGuiApplication> ensureGuiApplication();

struct OptionSpec;
class UsageErrors;

// The --size option of every command that draws, with the memory a size takes.
OptionSpec imageSizeOption();

// Reads --size WIDTHxHEIGHT into width and height (left alone when absent); false after telling
// `usage`.
bool readImageSize(const std::optional<std::string>& value, int& width, int& height,
                   UsageErrors& usage);

}  // namespace curvemill::cli
