// One writing copy per folder: a lock file beside a file the program rewrites, held while the
// program runs, so that a second copy started in the same folder knows it must not write there.
#pragma once

#include <filesystem>
#include <memory>

class QLockFile;

namespace curvemill {

class WriterLock {
  public:
    // Tries to take the lock beside `file` ("<file>.lock") at once.
    explicit WriterLock(const std::filesystem::path& file);
    ~WriterLock();
    WriterLock(const WriterLock&) = delete;
    WriterLock& operator=(const WriterLock&) = delete;

    // Another running copy holds the lock: this copy must leave the file alone.
    bool otherCopy() const { return otherCopy_; }

  private:
    std::unique_ptr<QLockFile> lock_;
    bool otherCopy_ = false;
};

}  // namespace curvemill
