// Keyboard mnemonics for the entries of one menu: which letter of each label Alt reaches.
#pragma once

#include <string>
#include <vector>

namespace curvemill {

// Returns the labels with '&' before the letter chosen for each (a literal '&' is doubled), so
// that no two entries of one menu share a letter. Word beginnings are preferred, then any other
// letter or digit, in the order of the label; a label whose letters are all taken gets none.
// Removing the markers gives the labels back unchanged.
std::vector<std::string> assignMnemonics(const std::vector<std::string>& labels);

}  // namespace curvemill
