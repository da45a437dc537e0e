// Any bytes as a graph document. What the reader accepts must pass the checks again, write out
// and read back as the same document, and write the same bytes the second time.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "document/DocumentCheck.h"
#include "document/ui/GraphDocumentFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace curvemill;
    const DocumentReading reading =
        parseGraphDocument(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!reading.document) {
        if (reading.message.empty()) {
            std::abort();
        }
        return 0;
    }
    if (checkGraphDocument(*reading.document)) {
        std::abort();
    }
    const std::string written = graphDocumentJson(*reading.document);
    const DocumentReading again = parseGraphDocument(written);
    if (!again.document || !(*again.document == *reading.document) ||
        graphDocumentJson(*again.document) != written) {
        std::abort();
    }
    return 0;
}
