// Writing a file named on the command line, its name kept as the bytes the user gave.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace curvemill::cli {

// Writes `bytes` to `path`, taken byte for byte (a name that is not valid UTF-8 is still that
// name). A regular file, or a path where nothing exists yet, is replaced whole: the bytes go to a
// temporary file beside it, renamed over it at the end, so a failure leaves the old file as it
// was and no partial file. Anything else that exists (a device such as /dev/null, a FIFO, a
// terminal) is written straight through, since a rename would replace it by a regular file.
// A symbolic link to an existing file is followed: its target is replaced, the link stays.
// Returns why it failed (the system's text for the error), or nothing.
std::optional<std::string> writeOutputFile(const std::string& path, std::string_view bytes);

}  // namespace curvemill::cli
