#include "host/completion.h"

#include "base/text/text.h"
#include "host/manual.h"

#include <fmt/core.h>

namespace opd::host {

namespace {

/// What bash is to offer for a value: a call that leaves it in COMPREPLY, or nothing.
std::string offerOf(const CLI::Option& option) {
    const std::string type = option.get_positional() ? option.get_name() : option.get_type_name();
    if (type == "FILE")
        return "mapfile -t COMPREPLY < <(compgen -f -- \"$word\")";
    if (type == "FOLDER")
        return "mapfile -t COMPREPLY < <(compgen -d -- \"$word\")";
    const std::string choice = option.get_type_name();
    const std::size_t begin = choice.find('{');
    if (begin == std::string::npos || !choice.ends_with('}'))
        return {};
    const std::string words = choice.substr(begin + 1, choice.size() - begin - 2);
    return "mapfile -t COMPREPLY < <(compgen -W '" + text::replaced(words, ",", " ") + "' -- \"$word\")";
}

std::string longNamesOf(const CLI::App& command) {
    std::string names;
    for (const CLI::Option* option : command.get_options())
        for (const std::string& name : option->get_lnames())
            names += (names.empty() ? "--" : " --") + name;
    return names;
}

/// The values of one command's options, and of its arguments, which are completed alike wherever they stand.
std::string caseOf(const CLI::App& command) {
    std::string script = fmt::format("    {})\n        case \"$before\" in\n", command.get_name());
    std::string arguments;
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_expected_max() == 0)
            continue;
        const std::string offer = offerOf(*option);
        if (option->get_positional())
            arguments = offer.empty() ? arguments : offer;
        else
            script += fmt::format("        --{}) {}; return ;;\n", option->get_lnames().front(),
                                  offer.empty() ? std::string{"COMPREPLY=()"} : offer);
    }
    if (arguments.empty())
        arguments = "COMPREPLY=()";
    return script + fmt::format("        esac\n        [[ $word == -* ]] || {{ {}; return; }}\n"
                                "        words='{}' ;;\n",
                                arguments, longNamesOf(command));
}

} // namespace

std::string bashCompletionOf(const CLI::App& app) {
    std::string commands, cases;
    for (const CLI::App* command : commandsOf(app)) {
        commands += (commands.empty() ? "" : " ") + command->get_name();
        cases += caseOf(*command);
    }
    return fmt::format(R"(# Completion of opd-desk for bash.
_opd_desk() {{
    local word="${{COMP_WORDS[COMP_CWORD]}}" before="${{COMP_WORDS[COMP_CWORD - 1]}}" words='{} {}'
    if [[ $COMP_CWORD -gt 1 ]]; then
    compopt -o filenames 2>/dev/null
    case "${{COMP_WORDS[1]}}" in
{}    *) words='' ;;
    esac
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}}
complete -F _opd_desk opd-desk
)",
                       commands, longNamesOf(app), cases);
}

} // namespace opd::host
