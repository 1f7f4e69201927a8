#include "adapters/sqlite/procedures.h"

#include "adapters/sqlite/embedded_sql.h"
#include "adapters/sqlite/engine/errors.h"
#include "base/text/text.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <stdexcept>

namespace opd::adapters::sqlite {

namespace {

constexpr std::string_view parametersHeading = "-- parameters:";
constexpr std::string_view databaseHeading = "-- database:";
constexpr std::string_view outputHeading = "-- output:";
constexpr std::string_view orderHeading = "-- order:";

/// What stands behind a heading up to the end of its line; nothing when the file has no such line.
std::optional<std::string> declared(const std::string& file, std::string_view heading) {
    const std::size_t start = file.find(heading);
    if (start == std::string::npos)
        return std::nullopt;
    const std::size_t text = start + heading.size();
    return text::trimmed(file.substr(text, file.find('\n', text) - text));
}

/// The parts of a list, parted by commas.
std::vector<std::string> partsOf(std::string_view list) {
    std::vector<std::string> parts;
    while (!text::isBlank(list)) {
        const std::size_t comma = std::min(list.find(','), list.size());
        parts.push_back(text::trimmed(list.substr(0, comma)));
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return parts;
}

/// Reads "Name kind"; "kind?" is optional.
Procedure::Parameter parameterOf(const std::string& declaration) {
    static const std::map<std::string, Procedure::Kind> kinds{{"text", Procedure::Kind::Text},
                                                              {"number", Procedure::Kind::Number},
                                                              {"bit", Procedure::Kind::Bit},
                                                              {"date", Procedure::Kind::Date}};
    const std::size_t blank = declaration.find(' ');
    std::string kind = declaration.substr(blank + 1);
    const bool optional = kind.ends_with("?");
    if (optional)
        kind.pop_back();
    return {declaration.substr(0, blank), kinds.at(kind), optional};
}

Procedure procedureOf(const EmbeddedText& file) {
    Procedure procedure;
    const std::string fileName = file.name;
    procedure.name =
        declared(file.text, databaseHeading).value_or("Patient_Data") + ".." + fileName.substr(0, fileName.find('.'));
    procedure.body = file.text;
    procedure.output = declared(procedure.body, outputHeading).value_or(std::string{});
    const std::optional<std::string> list = declared(procedure.body, parametersHeading);
    if (!list)
        throw std::logic_error(fileName + " declares no parameters");
    for (const std::string& declaration : partsOf(*list))
        procedure.parameters.push_back(parameterOf(declaration));
    procedure.order = partsOf(declared(procedure.body, orderHeading).value_or(""));
    return procedure;
}

using Procedures = std::multimap<std::string, Procedure>;

const Procedures& procedures() {
    static const Procedures all = [] {
        Procedures read;
        for (std::size_t i = 0; i < embeddedProcedureCount; ++i) {
            Procedure procedure = procedureOf(embeddedProcedures[i]);
            std::string key = text::upper(std::string_view{procedure.name});
            read.emplace(std::move(key), std::move(procedure));
        }
        return read;
    }();
    return all;
}

double numberOf(std::string_view argument) {
    const std::string digits = text::trimmed(argument);
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size())
        throw serverError("Error converting data type varchar to numeric.", 8114, "42000");
    return number;
}

} // namespace

std::vector<const Procedure*> allProcedures() {
    std::vector<const Procedure*> all;
    for (const auto& [key, procedure] : procedures())
        all.push_back(&procedure);
    return all;
}

const Procedure& findProcedure(const std::string& database, const std::string& name, std::size_t arguments) {
    const std::string full = database + ".." + name;
    const auto [first, last] = procedures().equal_range(text::upper(std::string_view{full}));
    if (first == last)
        throw serverError("Could not find stored procedure '" + full + "'.", 2812, "42000");
    std::size_t most = 0;
    for (auto entry = first; entry != last; ++entry) {
        const Procedure& procedure = entry->second;
        most = std::max(most, procedure.parameters.size());
        if (procedure.parameters.size() == arguments)
            return procedure;
    }
    if (arguments > most)
        throw serverError("Procedure or function " + name + " has too many arguments specified.", 8144, "42000");
    throw serverError("Procedure or function '" + name + "' expects parameter '@" +
                          first->second.parameters.at(std::min(arguments, first->second.parameters.size() - 1)).name +
                          "', which was not supplied.",
                      201, "42000");
}

Argument argumentFor(const Procedure::Parameter& parameter, std::string_view argument) {
    if (parameter.optional && text::isBlank(argument))
        return ado::Value{};
    switch (parameter.kind) {
    case Procedure::Kind::Number:
        return ado::Value{numberOf(argument)};
    case Procedure::Kind::Bit:
        return ado::Value{std::int64_t{numberOf(argument) != 0 ? 1 : 0}};
    case Procedure::Kind::Date:
        return ado::Value{canonicalDate(argument, false)};
    case Procedure::Kind::Text:
        break;
    }
    return argument;
}

const char* schemaText() {
    return embeddedSchema;
}

} // namespace opd::adapters::sqlite
