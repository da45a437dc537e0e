#include "shell/Mnemonics.h"

#include <cctype>
#include <set>

namespace curvemill {

namespace {

bool isMnemonicChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

char folded(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

// Position of the letter to mark, or npos. Text after a tab is a key hint and never marked.
std::size_t choose(const std::string& label, const std::set<char>& taken) {
    const std::size_t end = label.find('\t') == std::string::npos ? label.size() : label.find('\t');
    for (const bool wordStartsOnly : {true, false}) {
        for (std::size_t i = 0; i < end; ++i) {
            const bool wordStart = i == 0 || label[i - 1] == ' ' || label[i - 1] == '/';
            if (isMnemonicChar(label[i]) && (wordStart || !wordStartsOnly) &&
                taken.count(folded(label[i])) == 0) {
                return i;
            }
        }
    }
    return std::string::npos;
}

}  // namespace

std::vector<std::string> assignMnemonics(const std::vector<std::string>& labels) {
    std::set<char> taken;
    std::vector<std::string> marked;
    marked.reserve(labels.size());
    for (const std::string& label : labels) {
        const std::size_t at = choose(label, taken);
        std::string text;
        for (std::size_t i = 0; i < label.size(); ++i) {
            if (i == at) {
                text += '&';
                taken.insert(folded(label[i]));
            }
            text += label[i];
            if (label[i] == '&') {
                text += '&';
            }
        }
        marked.push_back(std::move(text));
    }
    return marked;
}

}  // namespace curvemill
