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
#include "files/SafeFileWriter.h"

namespace curvemill {

namespace {

constexpr std::string_view kKindNames[] = {"function", "equation", "surface", "curve"};
constexpr std::string_view kSchemeNames[] = {"grey", "red",     "green",  "blue",
                                             "cyan", "magenta", "yellow", "own"};
constexpr std::string_view kModeNames[] = {"polygons", "lines", "pixels"};

// The members of each section in the order they are written; reading and writing both walk
// them here, so the two can never disagree on a name.
template <typename V>
void visitRange(V& v, const char* name, RangeTexts& range) {
    v.object(name, [&] {
        v.text("begin", range.begin);
        v.text("end", range.end);
    });
}

template <typename V>
void visitView(V& v, FlatViewState& view) {
    v.object("view", [&] {
        v.number("xZoom", view.xZoom);
        v.number("yZoom", view.yZoom);
        v.number("scrollX", view.scrollX);
        v.number("scrollY", view.scrollY);
        v.list("stretches", view.stretches, [&](StretchLevel& level) {
            v.number("xFactor", level.xFactor);
            v.number("yFactor", level.yFactor);
            v.number("cornerX", level.cornerX);
            v.number("cornerY", level.cornerY);
        });
    });
}

template <typename V>
void visitLook(V& v, FlatLook& look) {
    v.object("look", [&] {
        v.whole("maxYRatio", look.maxYRatio);
        v.flag("optimizeDrawing", look.optimizeDrawing);
        v.flag("selectArea", look.selectArea);
        v.flag("tooltips", look.tooltips);
        v.flag("toolbar", look.toolbar);
        v.order("displayOrder", look.displayOrder);
        v.flag("grid", look.grid);
    });
}

template <typename V>
void visitSection(V& v, FunctionSection& s) {
    v.text("formula", s.formula);
    visitRange(v, "x", s.x);
    v.whole("points", s.points);
    v.text("secondFormula", s.secondFormula);
    v.flag("derivative", s.derivative);
    v.object("integral", [&] {
        v.flag("shown", s.integral.shown);
        visitRange(v, "range", s.integral.range);
        v.flag("precise", s.integral.precise);
    });
    v.flag("integralCurve", s.integralCurve);
    v.flag("indefiniteMarked", s.indefiniteMarked);
    visitView(v, s.view);
    visitLook(v, s.look);
}

template <typename V>
void visitSection(V& v, EquationSection& s) {
    v.text("formula", s.formula);
    visitRange(v, "x", s.x);
    visitRange(v, "y", s.y);
    v.whole("xPoints", s.xPoints);
    v.whole("yPoints", s.yPoints);
    v.whole("precisionDigits", s.precisionDigits);
    visitView(v, s.view);
    visitLook(v, s.look);
}

template <typename V>
void visitSection(V& v, SurfaceSection& s) {
    v.text("formula", s.formula);
    visitRange(v, "x", s.x);
    visitRange(v, "y", s.y);
    v.whole("xPoints", s.xPoints);
    v.whole("yPoints", s.yPoints);
    v.numbers("angles", s.angles);
    v.number("zoom", s.zoom);
    v.whole("horizontalLocation", s.horizontalLocation);
    v.whole("verticalLocation", s.verticalLocation);
    v.numbers("light", s.light);
    v.whole("ambient", s.ambient);
    v.flag("shiny", s.shiny);
    v.single("specularShare", s.specularShare);
    v.whole("fog", s.fog);
    v.choice("scheme", s.scheme, std::span(kSchemeNames));
    v.wholes("ownColour", s.ownColour);
    v.choice("mode", s.mode, std::span(kModeNames));
    v.flag("shading", s.shading);
    v.whole("zLimitStep", s.zLimitStep);
    v.flag("gridBox", s.gridBox);
}

template <typename V>
void visitSection(V& v, CurveSection& s) {
    v.flag("polar", s.polar);
    v.text("first", s.first);
    v.text("second", s.second);
    visitRange(v, "t", s.t);
    v.whole("points", s.points);
    v.flag("arrow", s.arrow);
    visitView(v, s.view);
    visitLook(v, s.look);
}

// Everything after "format" and "version".
template <typename V>
void visitDocument(V& v, GraphDocument& document) {
    v.choice("kind", document.kind, std::span(kKindNames));
    v.number("logBase", document.logBase);
    const auto section = [&](auto& members) {
        v.object(kKindNames[static_cast<int>(document.kind)].data(),
                 [&] { visitSection(v, members); });
    };
    switch (document.kind) {
        case DocumentKind::kFunction:
            section(document.function);
            break;
        case DocumentKind::kEquation:
            section(document.equation);
            break;
        case DocumentKind::kSurface:
            section(document.surface);
            break;
        case DocumentKind::kCurve:
            section(document.curve);
            break;
    }
}

// ----- Writing: the layout is ours, every leaf is QJsonDocument's (escapes) or the shortest
// round-trip form of the number.

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

// ----- Reading: every member must be there with its type; the first failure is kept and
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

std::optional<std::string> saveGraphDocument(const std::filesystem::path& path,
                                             const GraphDocument& document) {
    // What cannot be opened again is not written over a good file.
    if (auto refusal = checkGraphDocument(document)) {
        return refusal->text();
    }
    return writeFileSafely(path, graphDocumentJson(document));
}

}  // namespace curvemill
