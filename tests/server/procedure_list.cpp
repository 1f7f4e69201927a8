#include "server/procedure_list.h"

#include "adapters/sqlite/care/procedure_check.h"
#include "base/text/text.h"

#include <algorithm>
#include <map>

namespace opd::testserver {

ado::ResultSet procedureColumns(const std::string& database, const std::vector<std::string>& lacking) {
    std::map<std::string, std::vector<std::string>> procedures; // a server has each once, with all of its arguments
    for (const auto& called : adapters::sqlite::calledProcedures())
        if (text::equalsIgnoringCase(called.database, database) &&
            procedures[called.name].size() < called.arguments.size())
            procedures[called.name] = called.arguments;
    const auto isThere = [&](const std::string& what) {
        return std::find(lacking.begin(), lacking.end(), what) == lacking.end();
    };
    ado::ResultSet answer{{"PROCEDURE_NAME", "COLUMN_NAME"}, {}};
    for (const auto& [name, arguments] : procedures) {
        if (!isThere(name))
            continue;
        answer.rows.push_back({name + ";1", "@RETURN_VALUE"});
        for (const std::string& argument : arguments)
            if (isThere(name + "@" + argument))
                answer.rows.push_back({name + ";1", "@" + argument});
    }
    return answer;
}

} // namespace opd::testserver
