#include "history/EntriesFormat.h"

#include <array>
#include <vector>

namespace curvemill {
namespace {

constexpr int kEnd = -1;

// A field ends at a NUL byte, as the text of a C string would: the engine reads it no further,
// and the part after it must not be written back as though it had been checked.
std::string upToNul(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

// Reads the words after "@ ": each blank ends one, a last word without its blank is dropped.
// Returns false when a word was left out.
template <class Next>
bool readSearchStrings(SearchRing& ring, Next& next) {
    ring.clear();
    std::string word;
    for (int c = next(); c != kEnd; c = next()) {
        if (c != ' ') {
            if (ring.count() >= SearchRing::kSize) {
                return false;
            }
            word.push_back(static_cast<char>(c));
            continue;
        }
        // An empty word (two blanks in a row) is no search string and takes no slot: it must not
        // push the twentieth string out.
        ring.appendLoaded(upToNul(word));
        word.clear();
    }
    return word.empty();
}

// How many strings the loader makes of `text`: one per run of non-blank characters.
int wordCount(std::string_view text) {
    int words = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ' ' && (i == 0 || text[i - 1] == ' ')) {
            ++words;
        }
    }
    return words;
}

// The ring as written: every string as it is, blanks included, each followed by a blank. The
// loader takes each word of a string with blanks for a string of its own and reads no more than
// twenty, so only as many of the newest strings are written as make twenty words: all that is
// written is read back.
void appendSearchStrings(std::string& out, const SearchRing& ring) {
    const std::vector<std::string> strings = ring.oldestFirst();
    std::vector<std::string> kept;
    int words = 0;
    for (auto it = strings.rbegin(); it != strings.rend(); ++it) {
        // The loader, like the engine, reads a text no further than a NUL.
        std::string text = upToNul(*it);
        const int count = wordCount(text);
        if (count > 0 && words + count <= SearchRing::kSize) {
            words += count;
            kept.push_back(std::move(text));
        }
    }
    for (auto it = kept.rbegin(); it != kept.rend(); ++it) {
        out += *it;
        out += ' ';
    }
}

void appendRecord(std::string& out, const HistoryEntry& entry) {
    for (const std::string* field :
         {&entry.xBegin, &entry.xEnd, &entry.yBegin, &entry.yEnd, &entry.formula}) {
        out += *field;
        out += ' ';
    }
}

template <class Next>
bool parseEntries(HistoryStore& store, Next& next, LoadMode mode, RecordChecker& checker) {
    EntrySection section = EntrySection::Graphs;
    std::array<std::string, 5> fields;
    std::size_t field = 0;
    // The first character is taken as it is: a file that starts with '&' (empty first section)
    // gets that '&' as part of its first X begin, which then fails. Files we write keep this.
    int c = next();
    for (;;) {
        if (c == '@') {
            if (mode == kLoadAtStartup) {
                // The character after '@' is its blank and is skipped unseen.
                next();
                return readSearchStrings(store.searchRing(), next);
            }
            return true;
        }
        // The end of the file inside the records would only fill the field up to its limit, which
        // ends the load: a trailing partial record is dropped.
        if (c == kEnd) {
            return field == 0 && fields[0].empty();
        }
        if (c != ' ') {
            fields[field].push_back(static_cast<char>(c));
            if (fields[field].size() >= kFieldLimit) {
                return false;
            }
        } else if (++field == fields.size()) {
            HistoryEntry entry{upToNul(fields[4]), upToNul(fields[0]), upToNul(fields[1]),
                               upToNul(fields[2]), upToNul(fields[3]), section};
            if (!checker.accepts(entry)) {
                return false;
            }
            store.addLoadedEntry(entry);
            for (std::string& f : fields) {
                f.clear();
            }
            field = 0;
        }
        c = next();
        if (c == '&') {
            section = EntrySection::Equations;
            c = next();
        }
        // Records the full store would drop anyway are not read, let alone checked: a huge file
        // of valid records loads as fast as a full one. Their loss makes the load partial.
        if (field == 0 && store.size() >= HistoryStore::kCapacity && c != '@' && c != kEnd &&
            c != ' ') {
            return false;
        }
    }
}

}  // namespace

bool readEntries(HistoryStore& store, std::string_view bytes, LoadMode mode,
                 RecordChecker& checker) {
    std::size_t pos = 0;
    auto next = [&]() -> int {
        return pos < bytes.size() ? static_cast<unsigned char>(bytes[pos++]) : kEnd;
    };
    return parseEntries(store, next, mode, checker);
}

bool readEntries(HistoryStore& store, const ByteSource& source, LoadMode mode,
                 RecordChecker& checker) {
    auto next = [&source]() -> int { return source(); };
    return parseEntries(store, next, mode, checker);
}

std::string formatEntries(const HistoryStore& store, RecordChecker& checker) {
    // The loader's own rules decide: a record it would refuse ends the next load there and takes
    // every later record with it, so such a record is left out.
    std::string out;
    for (const HistoryEntry& entry : store.entries()) {
        if (entry.section == EntrySection::Graphs && checker.accepts(entry)) {
            appendRecord(out, entry);
        }
    }
    out += '&';
    for (const HistoryEntry& entry : store.entries()) {
        if (entry.section == EntrySection::Equations && checker.accepts(entry)) {
            appendRecord(out, entry);
        }
    }
    out += "@ ";
    appendSearchStrings(out, store.searchRing());
    return out;
}

}  // namespace curvemill
