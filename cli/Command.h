// The command table of curvemill-cli: each command lives in a file of its own.
#pragma once

#include <ostream>
#include <span>

#include "cli/Arguments.h"

namespace curvemill::cli {

// Exit codes scripts rely on.
inline constexpr int kExitOk = 0;
inline constexpr int kExitRefused = 1;  // the input was read but the system refused it
inline constexpr int kExitUsage = 2;    // the command line itself is wrong

struct Command {
    CommandSyntax syntax;
    // Runs with arguments already parsed against `syntax` (--help already answered); results go
    // to `out`, usage errors found while interpreting option values to `usage` (returning
    // kExitUsage).
    int (*run)(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage);
};

// To add a command: write its file with a factory like these and list it in CommandTable.cpp.
Command checkCommand();
Command evalCommand();
Command plotCommand();
Command sampleCommand();
Command surfaceCommand();
Command equationCommand();
Command parametricCommand();
Command polarCommand();
Command renderCommand();

std::span<const Command> commandTable();

// Typed formulas and numbers are read like an edit box of the Equation/ThreeD window: at most
// this many characters once blanks are removed.
inline constexpr std::size_t kMaxEntryLength = 99;

}  // namespace curvemill::cli
