#include "host/manual.h"

#include "host/completion.h"

#include <fmt/core.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace opd::host {

namespace {

/// As the formatter of manual pages takes it: a hyphen stays one, and no line is an order.
std::string written(const std::string& text) {
    std::string page;
    for (const char character : text) {
        if (character == '-' || character == '\\')
            page += '\\';
        page += character;
        if (character == '\\')
            page += 'e';
    }
    std::string escaped;
    for (std::size_t at = 0; at < page.size(); ++at) {
        if ((at == 0 || page[at - 1] == '\n') && (page[at] == '.' || page[at] == '\''))
            escaped += "\\&";
        escaped += page[at];
    }
    return escaped;
}

std::string headingOf(const std::string& name) {
    std::string capitals = name;
    for (char& letter : capitals)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return fmt::format(".TH {} 1 \"\" \"opd-desk {}\" \"Out-patient registration\"\n", written(capitals), OPD_VERSION);
}

std::string nameOf(const CLI::App& command) {
    return "opd-desk-" + command.get_name();
}

/// "\fB--name\fR \fITEXT\fR", or the name of an argument alone.
std::string termOf(const CLI::Option& option) {
    if (option.get_positional())
        return "\\fI" + written(option.get_name()) + "\\fR";
    std::string names;
    for (const std::string& name : option.get_snames())
        names += (names.empty() ? "" : ", ") + ("\\fB\\-" + written(name) + "\\fR");
    for (const std::string& name : option.get_lnames())
        names += (names.empty() ? "" : ", ") + ("\\fB\\-\\-" + written(name) + "\\fR");
    return option.get_expected_max() == 0 ? names : names + " \\fI" + written(option.get_type_name()) + "\\fR";
}

std::string optionsOf(const CLI::App& command) {
    std::string page;
    for (const CLI::Option* option : command.get_options()) {
        page += ".TP\n" + termOf(*option) + "\n" + written(option->get_description());
        page += option->get_required() ? " (required)." : ".";
        if (!option->get_default_str().empty())
            page += " The default is \"" + written(option->get_default_str()) + "\".";
        if (!option->get_envname().empty())
            page += " Without the option the variable " + option->get_envname() + " says it.";
        page += "\n";
    }
    return page;
}

std::string synopsisOf(const CLI::App& command) {
    std::string words = ".B opd\\-desk " + written(command.get_name()) + "\n[\\fIOPTIONS\\fR]";
    for (const CLI::Option* option : command.get_options())
        if (option->get_positional())
            words += option->get_required() ? " " + termOf(*option) : " [" + termOf(*option) + "]";
    return words + "\n";
}

std::string pageOf(const CLI::App& app, const CLI::App& command) {
    return headingOf(nameOf(command)) + ".SH NAME\n" + written(nameOf(command) + " - ") +
           written(command.get_description()) + "\n.SH SYNOPSIS\n" + synopsisOf(command) + ".SH OPTIONS\n" +
           optionsOf(command) + ".SH EXIT STATUS\n" + written(app.get_footer()) +
           "\n.SH SEE ALSO\n.BR opd\\-desk (1)\n";
}

std::string overviewOf(const CLI::App& app) {
    std::string page = headingOf(app.get_name()) + ".SH NAME\n" + written(app.get_name()) + " \\- " +
                       written(app.get_description()) +
                       "\n.SH SYNOPSIS\n.B opd\\-desk\n\\fICOMMAND\\fR [\\fIOPTIONS\\fR]\n.SH COMMANDS\n";
    for (const CLI::App* command : commandsOf(app))
        page += ".TP\n\\fB" + written(command->get_name()) + "\\fR\n" + written(command->get_description()) + "\n";
    page += ".SH OPTIONS\n" + optionsOf(app) + ".SH EXIT STATUS\n" + written(app.get_footer()) + "\n.SH SEE ALSO\n";
    const std::vector<const CLI::App*> commands = commandsOf(app);
    for (const CLI::App* command : commands)
        page += ".BR " + written(nameOf(*command)) + (command == commands.back() ? " (1)\n" : " (1),\n");
    return page;
}

void write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    out.close();
    if (!out)
        throw std::runtime_error("\"" + file.string() + "\" cannot be written.");
}

} // namespace

std::vector<const CLI::App*> commandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

void writeManual(const CLI::App& app, const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    write(folder / "opd-desk.1", overviewOf(app));
    for (const CLI::App* command : commandsOf(app))
        write(folder / (nameOf(*command) + ".1"), pageOf(app, *command));
    write(folder / "opd-desk.bash", bashCompletionOf(app));
}

} // namespace opd::host
