#include "shell/CalculatorLocator.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>
#include <vector>

namespace curvemill {

std::string findCalculator(std::string_view searchPath) {
    std::vector<std::string_view> directories;
    while (true) {
        const std::size_t colon = searchPath.find(':');
        // An empty entry means the current directory, as the shell reads PATH.
        std::string_view entry = searchPath.substr(0, colon);
        directories.push_back(entry.empty() ? std::string_view(".") : entry);
        if (colon == std::string_view::npos) {
            break;
        }
        searchPath.remove_prefix(colon + 1);
    }
    for (std::string_view program : kCalculatorPrograms) {
        for (std::string_view directory : directories) {
            std::string candidate(directory);
            candidate += '/';
            candidate += program;
            std::error_code error;
            if (std::filesystem::is_regular_file(candidate, error) &&
                access(candidate.c_str(), X_OK) == 0) {
                return candidate;
            }
        }
    }
    return {};
}

}  // namespace curvemill
