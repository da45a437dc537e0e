#include "parametric/CurveHistory.h"

#include <algorithm>
#include <system_error>

#include "files/SafeFileWriter.h"

namespace curvemill {

namespace {

constexpr std::string_view kHeader = "curvemill-curves 1";
// Texts longer than an edit box takes are not what the window wrote.
constexpr std::size_t kMostTextLength = 99;

bool fitsOneField(const std::string& text) {
    return text.size() <= kMostTextLength && std::none_of(text.begin(), text.end(), [](char c) {
               return c == '\t' || c == '\n' || c == '\r' || c == '\0';
           });
}

bool valid(const CurveEntry& entry) {
    return fitsOneField(entry.first) && fitsOneField(entry.second) && fitsOneField(entry.tBegin) &&
           fitsOneField(entry.tEnd) && !entry.first.empty() &&
           (entry.form == CurveForm::Polar) == entry.second.empty();
}

std::vector<std::string_view> fields(std::string_view line) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t tab = line.find('\t', start);
        parts.push_back(line.substr(start, tab - start));
        if (tab == std::string_view::npos) {
            return parts;
        }
        start = tab + 1;
    }
}

}  // namespace

void CurveHistory::record(const CurveEntry& entry) {
    if (!valid(entry)) {
        return;
    }
    std::erase(entries, entry);
    entries.insert(entries.begin(), entry);
    if (entries.size() > kMostCurveEntries) {
        entries.resize(kMostCurveEntries);
    }
}

std::string encodeCurveHistory(const CurveHistory& history) {
    std::string text(kHeader);
    text += '\n';
    for (const CurveEntry& e : history.entries) {
        text += e.form == CurveForm::Polar ? 'R' : 'P';
        for (const std::string* field : {&e.tBegin, &e.tEnd, &e.first, &e.second}) {
            text += '\t';
            text += *field;
        }
        text += '\n';
    }
    return text;
}

CurveHistoryReading decodeCurveHistory(std::string_view bytes) {
    CurveHistoryReading reading;
    const std::size_t firstEnd = bytes.find('\n');
    if (bytes.substr(0, firstEnd) != kHeader) {
        reading.problem = "not a history of curves";
        return reading;
    }
    std::size_t start = firstEnd == std::string_view::npos ? bytes.size() : firstEnd + 1;
    while (start < bytes.size()) {
        const std::size_t end = std::min(bytes.find('\n', start), bytes.size());
        const std::vector<std::string_view> parts = fields(bytes.substr(start, end - start));
        start = end + 1;
        CurveEntry entry;
        if (parts.size() != 5 || (parts[0] != "P" && parts[0] != "R")) {
            ++reading.skipped;
            continue;
        }
        entry.form = parts[0] == "R" ? CurveForm::Polar : CurveForm::Parametric;
        entry.tBegin = parts[1];
        entry.tEnd = parts[2];
        entry.first = parts[3];
        entry.second = parts[4];
        if (!valid(entry) || reading.history.entries.size() >= kMostCurveEntries) {
            ++reading.skipped;
            continue;
        }
        reading.history.entries.push_back(std::move(entry));
    }
    return reading;
}

CurveHistoryReading loadCurveHistory(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
        return {};
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        return {{}, 0, error.message()};
    }
    if (size > kMostCurveHistoryBytes) {
        return {{}, 0, "the file is larger than a history of curves can be"};
    }
    const ReadResult read = readWholeFile(path);
    if (!read.bytes) {
        return {{}, 0, read.error};
    }
    return decodeCurveHistory(*read.bytes);
}

std::optional<std::string> saveCurveHistory(const std::filesystem::path& path,
                                            const CurveHistory& history) {
    return writeFileSafely(path, encodeCurveHistory(history));
}

}  // namespace curvemill
