#include "document/ui/GraphDocumentFile.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <limits>
#include <span>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include "document/DocumentCheck.h"
#include "document/ui/DocumentMembers.h"
#include "files/SafeFileWriter.h"

namespace curvemill {

namespace {

using namespace document_members;

// Reading: every member must be there with its type; the first failure is kept and
// everything after it is skipped.
class Reader {
  public:
    explicit Reader(QJsonObject root) { objects_.push_back(std::move(root)); }

    std::optional<DocumentRefusal> refusal;

    void text(const char* name, std::string& value) {
        const QJsonValue v = member(name);
        if (v.isString()) {
            value = v.toString().toStdString();
        } else {
            mistyped(name, v, "a text");
        }
    }
    void number(const char* name, double& value) {
        const QJsonValue v = member(name);
        if (v.isDouble()) {
            value = v.toDouble();
        } else {
            mistyped(name, v, "a number");
        }
    }
    void single(const char* name, float& value) {
        double wide = 0.0;
        number(name, wide);
        if (!refusal) {
            value = static_cast<float>(wide);
        }
    }
    void whole(const char* name, std::int32_t& value) {
        const QJsonValue v = member(name);
        if (!wholeOf(v, value)) {
            mistyped(name, v, "a whole number");
        }
    }
    void flag(const char* name, bool& value) {
        const QJsonValue v = member(name);
        if (v.isBool()) {
            value = v.toBool();
        } else {
            mistyped(name, v, "true or false");
        }
    }
    void numbers(const char* name, std::array<double, 3>& values) {
        const QJsonValue v = member(name);
        const QJsonArray array = v.toArray();
        bool ok = v.isArray() && array.size() == 3;
        for (qsizetype i = 0; ok && i < 3; ++i) {
            ok = array[i].isDouble();
            values[std::size_t(i)] = array[i].toDouble();
        }
        if (!ok) {
            mistyped(name, v, "a list of 3 numbers");
        }
    }
    void wholes(const char* name, std::array<std::int32_t, 3>& values) {
        const QJsonValue v = member(name);
        const QJsonArray array = v.toArray();
        bool ok = v.isArray() && array.size() == 3;
        for (qsizetype i = 0; ok && i < 3; ++i) {
            ok = wholeOf(array[i], values[std::size_t(i)]);
        }
        if (!ok) {
            mistyped(name, v, "a list of 3 whole numbers");
        }
    }
    template <typename Enum>
    void choice(const char* name, Enum& value, std::span<const std::string_view> names) {
        const QJsonValue v = member(name);
        const std::string chosen = v.toString().toStdString();
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (v.isString() && names[i] == chosen) {
                value = static_cast<Enum>(i);
                return;
            }
        }
        std::string allowed;
        for (const std::string_view n : names) {
            allowed += allowed.empty() ? "" : ", ";
            allowed += n;
        }
        mistyped(name, v, "one of " + allowed);
    }
    void order(const char* name, DisplayOrder& value) {
        std::string letters;
        text(name, letters);
        if (refusal) {
            return;
        }
        if (const auto order = DisplayOrder::ofLetters(letters)) {
            value = *order;
        } else {
            refuse(name, "must hold each of f, d, i and F once, not \"" + letters + "\"");
        }
    }
    void object(const char* name, const std::function<void()>& members) {
        const QJsonValue v = member(name);
        if (!v.isObject()) {
            mistyped(name, v, "an object");
            return;
        }
        enter(name, v.toObject());
        members();
        leave();
    }
    template <typename Item, typename Members>
    void list(const char* name, std::vector<Item>& items, Members members) {
        const QJsonValue v = member(name);
        if (!v.isArray()) {
            mistyped(name, v, "a list");
            return;
        }
        const QJsonArray array = v.toArray();
        items.clear();
        for (qsizetype i = 0; i < array.size() && !refusal; ++i) {
            const std::string itemName = std::string(name) + "[" + std::to_string(i) + "]";
            if (!array[i].isObject()) {
                mistyped(itemName.c_str(), array[i], "an object");
                return;
            }
            enter(itemName, array[i].toObject());
            members(items.emplace_back());
            leave();
        }
    }

  private:
    QJsonValue member(const char* name) {
        if (refusal) {
            return {};
        }
        return objects_.back().value(QLatin1String(name));
    }
    static bool wholeOf(const QJsonValue& v, std::int32_t& value) {
        const double d = v.toDouble();
        if (!v.isDouble() || d != std::trunc(d) || d < std::numeric_limits<std::int32_t>::min() ||
            d > std::numeric_limits<std::int32_t>::max()) {
            return false;
        }
        value = static_cast<std::int32_t>(d);
        return true;
    }
    void mistyped(const std::string& name, const QJsonValue& v, const std::string& wanted) {
        refuse(name, v.isUndefined() ? "missing (" + wanted + ")" : "must be " + wanted);
    }
    void refuse(const std::string& name, std::string reason) {
        if (refusal) {
            return;
        }
        std::string field = path_;
        field += field.empty() ? "" : ".";
        field += name;
        refusal = DocumentRefusal{std::move(field), std::move(reason)};
    }
    void enter(const std::string& name, QJsonObject object) {
        paths_.push_back(path_);
        path_ += path_.empty() ? "" : ".";
        path_ += name;
        objects_.push_back(std::move(object));
    }
    void leave() {
        objects_.pop_back();
        path_ = paths_.back();
        paths_.pop_back();
    }

    std::vector<QJsonObject> objects_;
    std::vector<std::string> paths_;
    std::string path_;
};

DocumentReading refused(std::string field, std::string reason) {
    return {std::nullopt, DocumentRefusal{std::move(field), std::move(reason)}.text()};
}

}  // namespace

DocumentReading parseGraphDocument(std::string_view bytes) {
    if (bytes.size() > kMostDocumentBytes) {
        return refused("file", "larger than 1 MB (" + std::to_string(bytes.size()) + " bytes)");
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(
        QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size())), &error);
    if (error.error != QJsonParseError::NoError) {
        return refused("file", "not JSON: " + error.errorString().toStdString() + " at byte " +
                                   std::to_string(error.offset));
    }
    if (!json.isObject()) {
        return refused("file", "not a graph document: no JSON object");
    }
    const QJsonObject root = json.object();
    const QJsonValue format = root.value(QLatin1String("format"));
    if (format.toString().toStdString() != kGraphFormatName) {
        return refused("format", format.isUndefined()
                                     ? "missing: not a CurveMill graph"
                                     : "not a CurveMill graph (\"" +
                                           format.toString().toStdString() + "\" expected \"" +
                                           kGraphFormatName + "\")");
    }
    GraphDocument document;
    Reader reader(root);
    std::int32_t version = 0;
    reader.whole("version", version);
    if (!reader.refusal && version > kGraphFormatVersion) {
        return refused("version", std::to_string(version) + " is newer than this program reads (" +
                                      std::to_string(kGraphFormatVersion) + ")");
    }
    if (!reader.refusal && version < 1) {
        return refused("version", "must be 1 or more, not " + std::to_string(version));
    }
    visitDocument(reader, document);
    if (reader.refusal) {
        return {std::nullopt, reader.refusal->text()};
    }
    if (auto refusal = checkGraphDocument(document)) {
        return {std::nullopt, refusal->text()};
    }
    return {std::move(document), {}};
}

DocumentReading readGraphDocument(const std::filesystem::path& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    // A device or a pipe could be read for ever; a document is a file.
    if (!error && std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        return refused("file", "not a regular file");
    }
    const auto size = std::filesystem::file_size(path, error);
    if (!error && size > kMostDocumentBytes) {
        return refused("file", "larger than 1 MB (" + std::to_string(size) + " bytes)");
    }
    ReadResult read = readWholeFile(path);
    if (!read.bytes) {
        return refused("file", read.error);
    }
    return parseGraphDocument(*read.bytes);
}

}  // namespace curvemill
