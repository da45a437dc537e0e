#include <string>

#include "cli/Command.h"
#include "cli/GraphDocuments.h"
#include "cli/ImageSetup.h"
#include "cli/KindImages.h"

namespace curvemill::cli {
namespace {

CommandSyntax renderSyntax() {
    return {"render",
            "Opens the graph document DOC (.curvemill, as File > Save Graph writes it or\n"
            "--save-graph of plot, equation, surface, parametric and polar), computes its graph\n"
            "again and draws it as the program's window draws it: the same formulas, ranges,\n"
            "zoom, scroll and settings. The file's extension chooses the format: .png, .bmp,\n"
            ".svg or .pdf.",
            "DOC",
            1,
            64,
            {{"output", "FILE", "the image file to write (also -o FILE; - is stdout, as PNG)"},
             imageSizeOption(),
             {"depth", "24|8", "bits per pixel of a .bmp file (default 24)"}},
            "Options may come before or after DOC. A file is replaced atomically.\n"
            "For a folder of documents:\n"
            "  for d in *.curvemill; do curvemill-cli render \"$d\" -o \"${d%.curvemill}.png\"; "
            "done\n"
            "Exit status: 0 written, 1 the document was refused (the reason, naming the field, is\n"
            "printed) or the file could not be written, 2 wrong command line.\n",
            true};
}

int runRender(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    bool ok = true;
    const auto target = imageTarget(arguments, usage, ok);
    if (ok && !target) {
        usage.report() << "-o FILE is required\n";
        return kExitUsage;
    }
    if (!ok) {
        return kExitUsage;
    }
    return renderDocument(arguments.positionals[0], *target, out);
}

}  // namespace

Command renderCommand() {
    return {renderSyntax(), runRender};
}

}  // namespace curvemill::cli
