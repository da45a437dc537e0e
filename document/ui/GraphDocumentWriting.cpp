#include "document/ui/GraphDocumentFile.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <limits>

#include <QJsonArray>
#include <QJsonDocument>

#include "document/DocumentCheck.h"
#include "document/ui/DocumentMembers.h"
#include "files/SafeFileWriter.h"

namespace curvemill {

namespace {

using namespace document_members;

// The layout is ours, every leaf is QJsonDocument's (escapes) or the shortest round-trip form of
// the number.
class Writer {
  public:
    std::string out;

    void text(const char* name, const std::string& value) {
        const QByteArray leaf =
            QJsonDocument(QJsonArray{QString::fromStdString(value)}).toJson(QJsonDocument::Compact);
        key(name);
        out.append(leaf.constData() + 1, std::size_t(leaf.size()) - 2);
    }
    void number(const char* name, double value) {
        key(name);
        appendNumber(value);
    }
    void single(const char* name, float value) {
        key(name);
        char buffer[64];
        const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
        out.append(buffer, end);
    }
    void whole(const char* name, std::int32_t value) {
        key(name);
        out += std::to_string(value);
    }
    void flag(const char* name, bool value) {
        key(name);
        out += value ? "true" : "false";
    }
    void numbers(const char* name, const std::array<double, 3>& values) {
        key(name);
        out += '[';
        for (std::size_t i = 0; i < values.size(); ++i) {
            out += i == 0 ? "" : ", ";
            appendNumber(values[i]);
        }
        out += ']';
    }
    void wholes(const char* name, const std::array<std::int32_t, 3>& values) {
        key(name);
        out += '[' + std::to_string(values[0]) + ", " + std::to_string(values[1]) + ", " +
               std::to_string(values[2]) + ']';
    }
    template <typename Enum>
    void choice(const char* name, Enum value, std::span<const std::string_view> names) {
        std::string chosen(names[static_cast<std::size_t>(value)]);
        text(name, chosen);
    }
    void order(const char* name, const DisplayOrder& value) { text(name, value.letters()); }
    void object(const char* name, const std::function<void()>& members) {
        if (name != nullptr) {
            key(name);
        }
        out += '{';
        ++depth_;
        first_ = true;
        members();
        --depth_;
        newline();
        out += '}';
        first_ = false;
    }
    template <typename Item, typename Members>
    void list(const char* name, std::vector<Item>& items, Members members) {
        key(name);
        out += '[';
        ++depth_;
        for (std::size_t i = 0; i < items.size(); ++i) {
            out += i == 0 ? "" : ",";
            newline();
            object(nullptr, [&] { members(items[i]); });
        }
        --depth_;
        if (!items.empty()) {
            newline();
        }
        out += ']';
    }

  private:
    void key(const char* name) {
        if (!first_) {
            out += ',';
        }
        first_ = false;
        newline();
        out += '"';
        out += name;
        out += "\": ";
    }
    void newline() {
        out += '\n';
        out.append(std::size_t(depth_) * 4, ' ');
    }
    void appendNumber(double value) {
        // The parser reads any zero as the whole number 0: -0 is written so, and reads back the
        // same bytes.
        if (value == 0.0) {
            out += '0';
            return;
        }
        char buffer[64];
        const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
        out.append(buffer, end);
    }

    int depth_ = 0;
    bool first_ = true;
};

}  // namespace

std::string graphDocumentJson(const GraphDocument& document) {
    GraphDocument copy = document;
    Writer writer;
    writer.object(nullptr, [&] {
        std::string format = kGraphFormatName;
        writer.text("format", format);
        writer.whole("version", kGraphFormatVersion);
        visitDocument(writer, copy);
    });
    writer.out += '\n';
    return std::move(writer.out);
}

std::optional<std::string> saveGraphDocument(const std::filesystem::path& path,
                                             const GraphDocument& document) {
    // What cannot be opened again is not written over a good file.
    if (auto refusal = checkGraphDocument(document)) {
        return refusal->text();
    }
    return writeFileSafely(path, graphDocumentJson(document));
}

}  // namespace curvemill
