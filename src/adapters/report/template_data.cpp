#include "adapters/report/template_data.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"

#include <algorithm>
#include <stdexcept>

namespace opd::adapters::reporting {

namespace {

using kainjow::mustache::data;

const std::string* textOfValue(const ReportFile& file, const std::string& query, const std::string& column,
                               const std::string& value) {
    for (const ValueTexts& values : file.values)
        if (text::upper(values.query) == text::upper(query) && text::upper(values.column) == column)
            if (const auto found = values.texts.find(value); found != values.texts.end())
                return &found->second;
    return nullptr;
}

data shown(const std::string& text) {
    return text.empty() ? data(data::type::bool_false) : data(text);
}

void setColumn(data& row, const ReportFile& file, const std::string& query, const std::string& column,
               const ado::Value& value) {
    const std::string text = text::trimmed(value.asText());
    if (const std::string* known = textOfValue(file, query, column, text)) {
        row.set(column, shown(*known));
        return;
    }
    const bool isText = value.get<std::string>() != nullptr;
    row.set(column, isText || value.asFlag() ? shown(text) : data(data::type::bool_false));
    if (const auto* moment = value.get<DateTime>()) {
        row.set(column + "_DATE", dateText(*moment));
        row.set(column + "_TIME", timeText(*moment));
    }
}

data rowData(const ReportFile& file, const std::string& query, const ado::ResultSet& rows, std::size_t index) {
    data row;
    for (std::size_t i = 0; i < rows.columns.size(); ++i)
        setColumn(row, file, query, text::upper(rows.columns[i]), rows.rows[index][i]);
    return row;
}

data queryData(const ReportFile& file, const Query& query, const ado::ResultSet& rows) {
    if (!query.manyRows)
        return rows.rows.empty() ? data(data::type::bool_false) : rowData(file, query.name, rows, 0);
    data list(data::type::list);
    for (std::size_t i = 0; i < rows.rows.size(); ++i)
        list.push_back(rowData(file, query.name, rows, i));
    return list;
}

/// A layout with its names in upper case.
std::string withUpperNames(std::string layout) {
    for (std::size_t open = layout.find("{{"); open != std::string::npos; open = layout.find("{{", open)) {
        const std::size_t close = layout.find("}}", open);
        if (close == std::string::npos)
            break;
        layout.replace(open, close - open, text::upper(layout.substr(open, close - open)));
        open = close;
    }
    return layout;
}

} // namespace

data templateData(const ReportFile& file, const report::Report& report, const ReportData& answers,
                  const DateTime& now) {
    data all;
    all.set("TITLE", shown(file.title));
    all.set("HEADING", shown(report.heading));
    all.set("SUBHEADING", shown(report.subheading));
    all.set("USER", shown(report.printedBy));
    all.set("NOW_DATE", dateText(now));
    all.set("NOW_TIME", timeText(now));
    for (const auto& [name, value] : answers.parameters)
        all.set(name, shown(value));
    for (const Query& query : file.queries)
        all.set(text::upper(query.name), queryData(file, query, answers.queries.at(query.name)));
    return all;
}

std::string rendered(const std::string& layout, const data& values) {
    kainjow::mustache::mustache view{withUpperNames(layout)};
    std::string text = view.is_valid() ? view.render(values) : std::string{};
    if (!view.is_valid())
        throw std::runtime_error("The layout of the report is broken: " + view.error_message());
    // Another program's row may hold characters that no markup can: they would end it in the middle.
    std::replace_if(
        text.begin(), text.end(),
        [](unsigned char each) { return each < ' ' && each != '\t' && each != '\n' && each != '\r'; }, ' ');
    return text;
}

} // namespace opd::adapters::reporting
