// One remembered formula with the range texts it was drawn over, and the kind derived from it.
#pragma once

#include <string>

namespace curvemill {

// The two sections of the entries file: equations in two variables go to the second, everything
// else to the first.
enum class EntrySection { Graphs, Equations };
// Y range text of an entry that has none (a 2D function).
inline constexpr const char* kNoRange = "$";

struct HistoryEntry {
    std::string formula;
    std::string xBegin;
    std::string xEnd;
    // "$" for a 2D function, which has no Y range.
    std::string yBegin;
    std::string yEnd;
    EntrySection section = EntrySection::Graphs;
    // Set by the list's "Highlight Selected Item"; lives with the entry so the mark follows it when
    // entries move or others are deleted, and is never written to the file.
    bool marked = false;
};

// What an entry is, as the list windows show it (one kind at a time).
enum class EntryKind { TwoD, ThreeD, Equation };

// 2D when yBegin begins with '$', else by the section mark.
EntryKind kindOf(const HistoryEntry& entry);

// True when formula and all four range texts are equal (the section and the mark are not compared).
bool sameStrings(const HistoryEntry& a, const HistoryEntry& b);

}  // namespace curvemill
