// curvemill-cli: checks and evaluates formulas with the program's own engine, for scripts.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
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

// What went to stdout must have arrived: a full disk or a closed stream would otherwise lose the
// output behind an exit status of 0. A failed write is told on stderr and fails the run.
int checkedExit(int status) {
    errno = 0;
    std::cout.flush();
    const bool failed = std::fflush(stdout) != 0 || std::ferror(stdout) != 0 || !std::cout;
    if (!failed) {
        return status;
    }
    const int why = errno;
    std::cerr << "curvemill-cli: cannot write the output: "
              << (why != 0 ? std::strerror(why) : "write error") << '\n';
    return status == curvemill::cli::kExitOk ? curvemill::cli::kExitRefused : status;
}

int run(int argc, char** argv) {
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
    UsageErrors usage(command->syntax.command, std::cerr);
    if (!parseCommandLine(command->syntax, {words.begin() + 1, words.end()}, arguments, usage)) {
        return kExitUsage;
    }
    if (arguments.helpRequested) {
        std::cout << usageText(command->syntax);
        return kExitOk;
    }
    return command->run(arguments, std::cout, usage);
}

}  // namespace

int main(int argc, char** argv) {
    // A closed stdout would hand its descriptor to the next file opened (the -o file itself);
    // held by /dev/null opened for reading, every write to it fails and checkedExit tells so.
    if (fcntl(STDOUT_FILENO, F_GETFD) == -1 && errno == EBADF) {
        const int held = open("/dev/null", O_RDONLY);
        if (held >= 0 && held != STDOUT_FILENO) {
            dup2(held, STDOUT_FILENO);
            close(held);
        }
    }
    return checkedExit(run(argc, argv));
}
