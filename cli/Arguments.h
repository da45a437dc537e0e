// Command-line parsing shared by the commands of curvemill-cli: options first, then positionals.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace curvemill::cli {

struct OptionSpec {
    std::string name;       // without the leading "--"
    std::string valueName;  // empty for a flag
    std::string help;
};

// What a command accepts; also the source of its --help text.
struct CommandSyntax {
    std::string command;
    std::string summary;
    std::string positionalUsage;  // e.g. "FORMULA X [Y]"
    std::size_t minPositionals = 0;
    std::size_t maxPositionals = 0;
    std::vector<OptionSpec> options;
    std::string details;  // free text after the option list
    // Options may also follow the minPositionals positionals ("plot sin(x) --x-begin -1 ...");
    // words after them that are no options are refused as "no more arguments after FORMULA".
    bool optionsAfterPositional = false;
};

class ParsedArguments {
  public:
    bool helpRequested = false;
    std::vector<std::string> positionals;

    bool flag(std::string_view name) const { return values_.count(std::string(name)) != 0; }
    std::optional<std::string> value(std::string_view name) const;
    void set(const std::string& name, std::string value) { values_[name] = std::move(value); }

  private:
    std::map<std::string, std::string> values_;
};

// Parses `args` (the words after the command name). Options are "--name", "--name VALUE" or
// "--name=VALUE" (and "-o FILE" for --output) and must come before the positionals; "--" ends them,
// so a positional may begin with '-'. Returns the error message for a usage error, or nothing.
std::optional<std::string> parseArguments(const CommandSyntax& syntax,
                                          const std::vector<std::string>& args,
                                          ParsedArguments& parsed);

// Where a command's usage errors go: each message begins "curvemill-cli COMMAND: ".
class UsageErrors {
  public:
    UsageErrors(std::string_view command, std::ostream& err) : command_(command), err_(err) {}
    // Starts a message; the caller writes the rest and its line end.
    std::ostream& report() { return err_ << "curvemill-cli " << command_ << ": "; }

  private:
    std::string_view command_;
    std::ostream& err_;
};

// The whole command line of a command after its name: the options before and, where the syntax
// allows them, after the positional, and the positionals' count. False after telling `usage`.
bool parseCommandLine(const CommandSyntax& syntax, const std::vector<std::string>& args,
                      ParsedArguments& parsed, UsageErrors& usage);

// Whether every option of `names` was given; otherwise tells "--a, --b and --c are required".
bool requireOptions(const ParsedArguments& arguments, std::initializer_list<std::string_view> names,
                    UsageErrors& usage);

// The value of an integer option. One rule for all of them: plain decimal digits and nothing
// else, so no sign, no blanks before or after and no exponent ("10000", not " 10000", "10000 ",
// "+10000" or "1e4"). Nothing when the text breaks the rule or the number overflows a long.
std::optional<long> plainInteger(std::string_view text);

std::string usageText(const CommandSyntax& syntax);

}  // namespace curvemill::cli
