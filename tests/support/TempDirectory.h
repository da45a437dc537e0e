// A fresh directory of its own under the system's temporary folder (parallel runs never share
// one), removed with everything in it.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace curvemill::testing {

class TempDirectory {
  public:
    TempDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "curvemill-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::filesystem::filesystem_error(
                "mkdtemp", name, std::error_code(errno, std::generic_category()));
        }
        path_ = name;
    }
    ~TempDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }

    void write(const std::string& name, std::string_view text) const {
        std::ofstream out(path_ / name, std::ios::binary | std::ios::trunc);
        out << text;
    }

    std::string read(const std::string& name) const {
        std::ifstream in(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

  private:
    std::filesystem::path path_;
};

}  // namespace curvemill::testing
