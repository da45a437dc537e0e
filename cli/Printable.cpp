#include "cli/Printable.h"

namespace curvemill::cli {

std::string printable(std::string_view bytes) {
    static constexpr char kHex[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\') {
            text += "\\\\";
        } else if (byte >= 0x20 && byte < 0x7f) {
            text += c;
        } else {
            text += "\\x";
            text += kHex[byte >> 4];
            text += kHex[byte & 0xf];
        }
    }
    return text;
}

std::string quoted(std::string_view bytes) {
    std::string text(1, '\'');
    text += printable(bytes);
    text += '\'';
    return text;
}

}  // namespace curvemill::cli
