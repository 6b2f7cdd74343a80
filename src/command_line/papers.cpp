#include "command_line/papers.h"

#include <CLI/CLI.hpp>
#include <cctype>

namespace command_line {

namespace {

using Options = std::vector<const CLI::Option*>;

// A command's --help is the program's own and not told again.
Options Shown(const CLI::App& app) {
    const CLI::Option* known = app.get_parent() ? app.get_help_ptr() : nullptr;
    return app.get_options(
        [known](const CLI::Option* o) { return o != known && !o->get_group().empty() && o->nonpositional(); });
}

bool TakesValue(const CLI::Option& option) {
    return option.get_expected_min() > 0;
}

Options Positionals(const CLI::App& app) {
    return app.get_options([](const CLI::Option* o) { return o->get_positional(); });
}

std::string Roff(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '-' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string Upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// "A game." as it stands after the dash of a man page's name: "a game".
std::string AsPhrase(std::string text) {
    if (!text.empty()) text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    if (text.ends_with('.')) text.pop_back();
    return text;
}

std::string Usage(const CLI::App& app) {
    std::string usage = "\\fB" + Roff(app.get_name()) + "\\fR";
    for (const CLI::Option* positional : Positionals(app)) usage += " \\fI" + Roff(positional->get_name()) + "\\fR";
    return usage;
}

std::string Entry(const std::string& name, const std::string& value, const std::string& help) {
    return ".TP\n\\fB" + Roff(name) + "\\fR" + (value.empty() ? "" : " \\fI" + Roff(value) + "\\fR") + "\n" +
           Roff(help) + "\n";
}

std::string OptionEntries(const CLI::App& app) {
    std::string text;
    for (const CLI::Option* option : Shown(app)) {
        const std::string value = TakesValue(*option) ? option->get_type_name() : "";
        text += Entry(CLI::detail::find_and_replace(option->get_name(false, true), ",", ", "), value,
                      option->get_description());
    }
    return text;
}

std::string Commands(const CLI::App& app) {
    std::string text;
    for (const CLI::App* command : app.get_subcommands({})) {
        text += ".SS " + Usage(*command) + "\n" + Roff(command->get_description()) + "\n";
        for (const CLI::Option* positional : Positionals(*command)) {
            text += Entry("", positional->get_name(), positional->get_description());
        }
        text += OptionEntries(*command);
    }
    return text.empty() ? "" : ".SH COMMANDS\n" + text;
}

// What to offer for a value: by the name the help gives it.
std::string Offer(const std::string& value) {
    if (value.ends_with("DIR")) return "-d";
    if (value.ends_with("FILE")) return "-f";
    if (!value.starts_with('{')) return "";
    return "-W '" + CLI::detail::find_and_replace(value.substr(1, value.size() - 2), ",", " ") + "'";
}

std::string Names(const CLI::App& app) {
    std::string names;
    for (const CLI::Option* option : Shown(app)) {
        names += CLI::detail::find_and_replace(option->get_name(false, true), ",", " ") + " ";
    }
    return names;
}

// One line of the script's case: what follows the option.
std::string ValueCases(const CLI::App& app) {
    std::string cases;
    for (const CLI::Option* option : Shown(app)) {
        if (!TakesValue(*option)) continue;
        cases += "        " + app.get_name() + ":" + option->get_name() + ") offer=(" + Offer(option->get_type_name()) +
                 ") ;;\n";
    }
    return cases;
}

// The lines for a command: its options' values, then what else may stand there.
std::string CommandCases(const CLI::App& app) {
    std::string words = Names(app);
    for (const CLI::App* command : app.get_subcommands({})) words += command->get_name() + " ";
    const Options positionals = Positionals(app);
    const std::string rest = positionals.empty() ? "" : Offer(positionals.front()->get_name());
    return ValueCases(app) + "        " + app.get_name() + ":*) offer=(-W '" + words + "' " + rest + ") ;;\n";
}

// The words before the cursor choose the case. bash cuts "--name=value" into three words.
constexpr const char* kCompletion = R"(# bash completion of @NAME@
@FUNCTION@() {
    local command=@NAME@ current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} offer=()
    case ${COMP_WORDS[1]} in
        @COMMANDS@) [ "$COMP_CWORD" = 1 ] || command=${COMP_WORDS[1]} ;;
    esac
    [ "$before" != = ] || before=${COMP_WORDS[COMP_CWORD - 2]}
    [ "$current" != = ] || { before=${COMP_WORDS[COMP_CWORD - 1]} current=; }
    case $command:$before in
@CASES@    esac
    COMPREPLY=()
    [ ${#offer[@]} = 0 ] || mapfile -t COMPREPLY < <(compgen "${offer[@]}" -- "$current")
}
complete -o filenames -F @FUNCTION@ @NAME@
)";

}  // namespace

std::string ManPage(const CLI::App& app, int section) {
    const std::string name = Roff(app.get_name());
    const bool hasCommands = !app.get_subcommands({}).empty();
    return "'\\\" t\n.TH " + Upper(name) + " " + std::to_string(section) +
           " \"\" \"Tarnveil " TARNVEIL_VERSION "\"\n.ad l\n.SH NAME\n" + name + " \\- " +
           Roff(AsPhrase(app.get_description())) + "\n.SH SYNOPSIS\n" + Usage(app) +
           (hasCommands ? " \\fICOMMAND\\fR" : "") + " [\\fIOPTION\\fR]...\n.SH DESCRIPTION\n" +
           Roff(app.get_description()) + "\n" + Commands(app) + ".SH OPTIONS\nValues may also be given as " +
           "\\fB\\-\\-NAME=\\fIVALUE\\fR.\n" + OptionEntries(app) +
           ".SH EXIT STATUS\n0 when done, 1 when it failed, 2 when the command line was wrong.\n";
}

std::string BashCompletion(const CLI::App& app) {
    std::string cases = CommandCases(app), commands;
    for (const CLI::App* command : app.get_subcommands({})) {
        cases = CommandCases(*command) + cases;
        commands += (commands.empty() ? "" : "|") + command->get_name();
    }
    const std::string& name = app.get_name();
    std::string script = kCompletion;
    for (const auto& [mark, text] : {std::pair{"@NAME@", name},
                                     {"@FUNCTION@", "_complete_" + CLI::detail::find_and_replace(name, "-", "_")},
                                     {"@COMMANDS@", commands.empty() ? "''" : commands},
                                     {"@CASES@", cases}}) {
        script = CLI::detail::find_and_replace(script, mark, text);
    }
    return script;
}

}  // namespace command_line
