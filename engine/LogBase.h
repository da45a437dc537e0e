// The logic of the Log Base dialog, without its window.
#pragma once

#include <string>
#include <string_view>

namespace curvemill {

class Formula;

inline constexpr const char* kMsgEnterValidNumber = "ENTER A VALID NUMBER";
inline constexpr const char* kMsgLogBasePositive = "LOG BASE MUST BE A POSITIVE NUMBER";

// Digits, at most one '.', a '-' only in first place; an empty text fails.
bool isPlainNumber(std::string_view text);

struct LogBaseResult {
    bool accepted = false;  // false: the dialog stays open
    std::string message;    // the message box text when not accepted
};

// OK pressed with "base 10" (useOtherBase false) or with another base typed in `text`.
LogBaseResult applyLogBase(Formula& formula, bool useOtherBase, std::string_view text);

}  // namespace curvemill
