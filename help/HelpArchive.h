// Where the help archive is looked for, and the rule that a failed look is never repeated.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace curvemill {

// The places the archive may be, best first, for a program in `programDir`: beside the program,
// in the share/curvemill folder of the prefix it was installed into (from bin/ or from
// libexec/curvemill/), and in a build tree's help/.
std::vector<std::string> helpArchiveCandidates(const std::string& programDir);

// Opens the archive on first use and keeps it open; when the first attempt fails, every later
// request fails at once without looking again (the files do not appear while the program runs,
// and a user asking twice should not wait twice).
class HelpArchiveOnce {
  public:
    explicit HelpArchiveOnce(std::function<bool()> open) : open_(std::move(open)) {}

    // True when the archive is open, trying to open it only the first time.
    bool ready();
    bool failed() const { return state_ == State::Failed; }

  private:
    enum class State { NotTried, Open, Failed };
    std::function<bool()> open_;
    State state_ = State::NotTried;
};

}  // namespace curvemill
