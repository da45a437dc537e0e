#include "help/HelpArchive.h"

#include "help/HelpTopics.h"

namespace curvemill {

std::vector<std::string> helpArchiveCandidates(const std::string& programDir) {
    std::string dir = programDir.empty() ? std::string(".") : programDir;
    while (dir.size() > 1 && dir.back() == '/') {
        dir.pop_back();
    }
    const std::string name(kHelpArchiveName);
    return {dir + "/" + name, dir + "/../share/curvemill/" + name,
            dir + "/../../share/curvemill/" + name, dir + "/../help/" + name};
}

bool HelpArchiveOnce::ready() {
    if (state_ == State::NotTried) {
        state_ = open_ && open_() ? State::Open : State::Failed;
    }
    return state_ == State::Open;
}

}  // namespace curvemill
