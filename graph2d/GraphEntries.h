// The Function dialog's checks of its boxes, in the dialog's order; the command line checks the
// same way.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace curvemill {

class Formula;
class NumberBox;

// The range boxes' names in their refusals ("ERROR IN X_BEG EDIT BOX: ...").
inline constexpr const char* kXBeginBoxName = "X_BEG";
inline constexpr const char* kXEndBoxName = "X_END";

enum class GraphEntryBox { kXBegin, kXEnd, kFormula };

struct GraphEntryRefusal {
    std::string message;
    GraphEntryBox box = GraphEntryBox::kXBegin;
    // The ordering and same-function refusals have no Help button explaining them.
    bool explained = true;
};

struct GraphEntries {
    double xBegin = 0.0;
    double xEnd = 0.0;
    std::optional<GraphEntryRefusal> refusal;
};

// Checks X Begin, X End, their order, for a second function that it differs from `mainFormula`
// (blanks aside), then prepares `typed` into the slot of the main or the second function.
// `askLogBase` runs before the formula check when the formula holds "log".
GraphEntries checkGraphEntries(Formula& formula, NumberBox& xBegin, NumberBox& xEnd,
                               const std::string& typed,
                               std::optional<std::string_view> mainFormula = std::nullopt,
                               const std::function<void()>& askLogBase = {});

}  // namespace curvemill
