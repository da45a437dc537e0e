#include <charconv>

#include "cli/MathCommands.h"
#include "cli/Printable.h"

namespace curvemill::cli {

std::optional<int> wholeArgument(const std::optional<std::string>& value, std::string_view name,
                                 int least, int most, int fallback, UsageErrors& usage) {
    if (!value) {
        return fallback;
    }
    int number = 0;
    const char* end = value->data() + value->size();
    const auto parsed = std::from_chars(value->data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end || number < least || number > most) {
        usage.report() << "--" << name << " must be a whole number from " << least << " to " << most
                       << ", not " << quoted(*value) << "\n";
        return std::nullopt;
    }
    return number;
}

std::string fullPrecision(double v) {
    char buffer[40];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::general, 17);
    return std::string(buffer, r.ptr);
}

}  // namespace curvemill::cli
