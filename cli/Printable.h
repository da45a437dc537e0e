// Echoing command-line words in messages without letting their bytes act on the terminal.
#pragma once

#include <string>
#include <string_view>

namespace curvemill::cli {

// `bytes` with every byte outside printable ASCII written as \xHH and the backslash doubled, so a
// word holding an escape sequence or an invalid UTF-8 byte shows what it holds, unambiguously.
std::string printable(std::string_view bytes);

// printable(bytes) between single quotes.
std::string quoted(std::string_view bytes);

}  // namespace curvemill::cli
