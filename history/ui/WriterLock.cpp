#include "history/ui/WriterLock.h"

#include <string>

#include <QLockFile>

namespace curvemill {

// A copy that crashed leaves no lasting block: its lock is taken over once its process is gone.
WriterLock::WriterLock(const std::filesystem::path& file)
    : lock_(std::make_unique<QLockFile>(
          QString::fromStdString(file.string() + std::string(".lock")))) {
    // Held as long as this copy runs, however long: never given up for its age.
    lock_->setStaleLockTime(0);
    if (lock_->tryLock(0)) {
        return;
    }
    // A folder that takes no lock file (read-only) is no sign of another copy.
    otherCopy_ = lock_->error() == QLockFile::LockFailedError;
    lock_.reset();
}

WriterLock::~WriterLock() = default;

}  // namespace curvemill
