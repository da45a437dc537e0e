// Graph documents as files: JSON through QJsonDocument, written through the one crash-safe writer,
// read without trusting a byte of it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "document/GraphDocument.h"

namespace curvemill {

// Larger files are refused unread.
inline constexpr std::size_t kMostDocumentBytes = 1024 * 1024;

// The file filter of the open and save dialogs and the name every document ends in.
inline constexpr const char* kGraphFileFilter = "CurveMill graph (*.curvemill)";
inline constexpr const char* kGraphFileSuffix = ".curvemill";

// The document as UTF-8 JSON: "format" and "version" first, then the kind's section, members in
// a fixed order, numbers in the shortest form that reads back bit for bit, one member a line. An
// unchanged document gives the same bytes every time.
std::string graphDocumentJson(const GraphDocument& document);

struct DocumentReading {
    std::optional<GraphDocument> document;
    // Why there is none: "<field>: <reason>" or what kept the file from being read.
    std::string message;
};

// Parses and checks (checkGraphDocument) a document's bytes.
DocumentReading parseGraphDocument(std::string_view bytes);
DocumentReading readGraphDocument(const std::filesystem::path& path);

// Writes through writeFileSafely; returns why the document was not stored.
std::optional<std::string> saveGraphDocument(const std::filesystem::path& path,
                                             const GraphDocument& document);

}  // namespace curvemill
