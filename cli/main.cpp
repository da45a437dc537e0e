// curvemill-cli: checks and evaluates formulas with the program's own engine, for scripts.
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "cli/Printable.h"

namespace {

using curvemill::cli::Command;
using curvemill::cli::commandTable;

void printCommandList(std::ostream& out) {
    out << "usage: curvemill-cli COMMAND [options] [--] ARGUMENTS\n\ncommands:\n";
    for (const Command& command : commandTable()) {
        std::string name = "  " + command.syntax.command;
        name.resize(std::max<std::size_t>(name.size() + 2, 12), ' ');
        const std::string& summary = command.syntax.summary;
        out << name << summary.substr(0, summary.find('\n')) << '\n';
    }
    out << "\n'curvemill-cli COMMAND --help' describes a command.\n";
}

}  // namespace

int main(int argc, char** argv) {
    using namespace curvemill::cli;
    const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    if (words.empty()) {
        printCommandList(std::cerr);
        return kExitUsage;
    }
    if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
        printCommandList(std::cout);
        return kExitOk;
    }
    const auto table = commandTable();
    const auto command = std::find_if(
        table.begin(), table.end(), [&](const Command& c) { return c.syntax.command == words[0]; });
    if (command == table.end()) {
        std::cerr << "curvemill-cli: unknown command " << quoted(words[0]) << "\n\n";
        printCommandList(std::cerr);
        return kExitUsage;
    }
    ParsedArguments arguments;
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    if (const auto error = parseArguments(command->syntax, rest, arguments)) {
        std::cerr << "curvemill-cli " << command->syntax.command << ": " << *error
                  << "\n(see 'curvemill-cli " << command->syntax.command << " --help')\n";
        return kExitUsage;
    }
    if (arguments.helpRequested) {
        std::cout << usageText(command->syntax);
        return kExitOk;
    }
    return command->run(arguments, std::cout, std::cerr);
}
