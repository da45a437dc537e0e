#include "history/ListLine.h"

namespace curvemill {
namespace {

// Built by appending: "(" + std::string&& trips a false -Wrestrict warning in GCC 12.
std::string rangePart(const HistoryEntry& entry) {
    std::string text = ")  From:";
    text += entry.xBegin;
    text += "  To:";
    text += entry.xEnd;
    return text;
}

}  // namespace

std::string listLine(const HistoryEntry& entry) {
    std::string line = "(";
    line += entry.formula;
    line += rangePart(entry);
    return line;
}

ListLinePieces splitAtHit(const HistoryEntry& entry, std::size_t position, std::size_t length) {
    if (length == 0 || position > entry.formula.size() ||
        length > entry.formula.size() - position) {
        return {listLine(entry), {}, {}};
    }
    ListLinePieces pieces;
    pieces.before = "(";
    pieces.before.append(entry.formula, 0, position);
    pieces.hit = entry.formula.substr(position, length);
    pieces.after = entry.formula.substr(position + length);
    pieces.after += rangePart(entry);
    return pieces;
}

}  // namespace curvemill
