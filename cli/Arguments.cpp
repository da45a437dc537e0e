#include "cli/Arguments.h"

#include <algorithm>
#include <charconv>

#include "cli/Printable.h"

namespace curvemill::cli {
namespace {

const std::string kOutput = "--output";

const OptionSpec* findOption(const CommandSyntax& syntax, std::string_view name) {
    const auto it = std::find_if(syntax.options.begin(), syntax.options.end(),
                                 [&](const OptionSpec& o) { return o.name == name; });
    return it == syntax.options.end() ? nullptr : &*it;
}

}  // namespace

std::optional<std::string> ParsedArguments::value(std::string_view name) const {
    const auto it = values_.find(std::string(name));
    if (it == values_.end()) {
        return std::nullopt;
    }
    return it->second;
}

std::optional<std::string> parseArguments(const CommandSyntax& syntax,
                                          const std::vector<std::string>& args,
                                          ParsedArguments& parsed) {
    std::size_t i = 0;
    for (; i < args.size(); ++i) {
        // -o is the one short option: --output's, wherever it stands.
        const std::string& word =
            args[i] == "-o" && findOption(syntax, "output") != nullptr ? kOutput : args[i];
        if (word == "--") {
            ++i;
            break;
        }
        // A lone "-" is an ordinary word; anything else with a leading '-' is taken for an
        // option, which is why a formula such as "-x" needs the "--" before it.
        if (word.size() < 2 || word[0] != '-') {
            break;
        }
        if (word == "--help" || word == "-h") {
            parsed.helpRequested = true;
            return std::nullopt;
        }
        if (word.rfind("--", 0) != 0) {
            return "unknown option " + quoted(word) +
                   " (put -- before a formula that begins with '-')";
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(2, equals == std::string::npos ? equals : equals - 2);
        const OptionSpec* option = findOption(syntax, name);
        if (option == nullptr) {
            return "unknown option " + quoted("--" + name);
        }
        if (option->valueName.empty()) {
            if (equals != std::string::npos) {
                return "option " + quoted("--" + name) + " takes no value";
            }
            parsed.set(name, "");
        } else if (equals != std::string::npos) {
            parsed.set(name, word.substr(equals + 1));
        } else if (i + 1 < args.size()) {
            parsed.set(name, args[++i]);
        } else {
            return "option '--" + name + "' needs a value " + option->valueName;
        }
    }
    parsed.positionals.assign(args.begin() + static_cast<std::ptrdiff_t>(i), args.end());
    const std::size_t count = parsed.positionals.size();
    if (count < syntax.minPositionals || count > syntax.maxPositionals) {
        return "expected " + syntax.positionalUsage + ", got " + std::to_string(count) +
               (count == 1 ? " argument" : " arguments");
    }
    return std::nullopt;
}

bool parseCommandLine(const CommandSyntax& syntax, const std::vector<std::string>& args,
                      ParsedArguments& parsed, UsageErrors& usage) {
    std::optional<std::string> error = parseArguments(syntax, args, parsed);
    // The first minPositionals words are the command's own; what follows them may be options.
    const std::size_t own = syntax.minPositionals;
    if (!error && syntax.optionsAfterPositional && parsed.positionals.size() > own) {
        const std::vector<std::string> rest(
            parsed.positionals.begin() + static_cast<std::ptrdiff_t>(own),
            parsed.positionals.end());
        CommandSyntax optionsOnly = syntax;
        optionsOnly.minPositionals = 0;
        optionsOnly.maxPositionals = 0;
        // Scripts match the one-positional commands' words, whatever they call their positional.
        optionsOnly.positionalUsage = "no more arguments after " +
                                      (own == 1 ? std::string("FORMULA") : syntax.positionalUsage);
        ParsedArguments trailing;
        error = parseArguments(optionsOnly, rest, trailing);
        for (const OptionSpec& option : syntax.options) {
            if (const auto value = trailing.value(option.name)) {
                parsed.set(option.name, *value);
            }
        }
        parsed.helpRequested = parsed.helpRequested || trailing.helpRequested;
        parsed.positionals.resize(own);
    }
    if (error) {
        usage.report() << *error << "\n(see 'curvemill-cli " << syntax.command << " --help')\n";
        return false;
    }
    return true;
}

bool requireOptions(const ParsedArguments& arguments, std::initializer_list<std::string_view> names,
                    UsageErrors& usage) {
    if (std::all_of(names.begin(), names.end(),
                    [&arguments](std::string_view name) { return arguments.value(name); })) {
        return true;
    }
    std::ostream& err = usage.report();
    std::size_t left = names.size();
    for (std::string_view name : names) {
        --left;
        err << "--" << name << (left > 1 ? ", " : left == 1 ? " and " : " are required\n");
    }
    return false;
}

std::optional<long> plainInteger(std::string_view text) {
    long value = 0;
    const char* const end = text.data() + text.size();
    if (text.empty() || text[0] < '0' || text[0] > '9') {
        return std::nullopt;
    }
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

std::string usageText(const CommandSyntax& syntax) {
    constexpr std::size_t kHelpColumn = 22;
    std::string text = "usage: curvemill-cli " + syntax.command;
    if (!syntax.options.empty()) {
        text += " [options]";
    }
    text += " [--] " + syntax.positionalUsage + "\n\n" + syntax.summary + "\n\noptions:\n";
    for (const OptionSpec& option : syntax.options) {
        std::string left = "  --" + option.name;
        if (!option.valueName.empty()) {
            left += " " + option.valueName;
        }
        left.resize(std::max<std::size_t>(left.size() + 2, kHelpColumn), ' ');
        text += left;
        // A help of several lines continues under its first line, not at the margin.
        for (const char c : option.help) {
            text += c;
            if (c == '\n') {
                text.append(kHelpColumn, ' ');
            }
        }
        text += "\n";
    }
    text += "  --help              show this text\n";
    if (!syntax.details.empty()) {
        text += "\n" + syntax.details;
    }
    return text;
}

}  // namespace curvemill::cli
