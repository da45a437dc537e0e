#include "history/EntriesFormat.h"

#include <array>

namespace curvemill {
namespace {

constexpr int kEnd = -1;

// A field ends at a NUL byte, as the text of a C string would: the engine reads it no further,
// and the part after it must not be written back as though it had been checked.
std::string upToNul(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

// Reads the words after "@ ": each blank ends one, a last word without its blank is dropped.
void readSearchStrings(SearchRing& ring, std::string_view text) {
    ring.clear();
    std::string word;
    int words = 0;
    for (char c : text) {
        if (words >= SearchRing::kSize) {
            return;
        }
        if (c != ' ') {
            word.push_back(c);
            continue;
        }
        // An empty word (two blanks) is no search string, though it counts towards the twenty.
        ring.appendLoaded(upToNul(word));
        word.clear();
        ++words;
    }
}

// A record that the loader would refuse (or split differently) must not be written: it would end
// the next load there and take every later record with it.
bool isWritable(const HistoryEntry& entry) {
    for (const std::string* field :
         {&entry.xBegin, &entry.xEnd, &entry.yBegin, &entry.yEnd, &entry.formula}) {
        if (field->empty() || field->size() >= kFieldLimit ||
            field->find_first_of(" &@") != std::string::npos) {
            return false;
        }
    }
    return true;
}

void appendRecord(std::string& out, const HistoryEntry& entry) {
    for (const std::string* field :
         {&entry.xBegin, &entry.xEnd, &entry.yBegin, &entry.yEnd, &entry.formula}) {
        out += *field;
        out += ' ';
    }
}

}  // namespace

void readEntries(HistoryStore& store, std::string_view bytes, char mode, RecordChecker& checker) {
    std::size_t pos = 0;
    auto next = [&]() -> int {
        return pos < bytes.size() ? static_cast<unsigned char>(bytes[pos++]) : kEnd;
    };
    char section = kSectionY;
    std::array<std::string, 5> fields;
    std::size_t field = 0;
    // The first character is taken as it is: a file that starts with '&' (empty first section)
    // gets that '&' as part of its first X begin, which then fails. Files we write keep this.
    int c = next();
    for (;;) {
        if (c == '@') {
            if (mode == kLoadAtStartup) {
                // The character after '@' is its blank and is skipped unseen.
                const std::size_t wordsStart = pos < bytes.size() ? pos + 1 : pos;
                readSearchStrings(store.searchRing(), bytes.substr(wordsStart));
            }
            return;
        }
        // The end of the file inside the records would only fill the field up to its limit, which
        // ends the load: a trailing partial record is dropped.
        if (c == kEnd) {
            return;
        }
        if (c != ' ') {
            fields[field].push_back(static_cast<char>(c));
            if (fields[field].size() >= kFieldLimit) {
                return;
            }
        } else if (++field == fields.size()) {
            HistoryEntry entry{upToNul(fields[4]), upToNul(fields[0]), upToNul(fields[1]),
                               upToNul(fields[2]), upToNul(fields[3]), section};
            if (!checker.accepts(entry)) {
                return;
            }
            store.addLoadedEntry(entry);
            for (std::string& f : fields) {
                f.clear();
            }
            field = 0;
        }
        c = next();
        if (c == '&') {
            section = kSectionN;
            c = next();
        }
    }
}

std::string formatEntries(const HistoryStore& store) {
    std::string out;
    for (const HistoryEntry& entry : store.entries()) {
        if (entry.section == kSectionY && isWritable(entry)) {
            appendRecord(out, entry);
        }
    }
    out += '&';
    for (const HistoryEntry& entry : store.entries()) {
        if (entry.section != kSectionY && isWritable(entry)) {
            appendRecord(out, entry);
        }
    }
    out += "@ ";
    for (const std::string& text : store.searchRing().oldestFirst()) {
        // A blank would split it in two when read back.
        if (text.find(' ') == std::string::npos) {
            out += text;
            out += ' ';
        }
    }
    return out;
}

}  // namespace curvemill
