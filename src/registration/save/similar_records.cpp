#include "registration/save/similar_records.h"

#include "base/text/leading_number.h"
#include "base/text/text.h"
#include "data/procedures/dates.h"
#include "data/rows.h"
#include "registration/statements/queries.h"

#include <algorithm>
#include <vector>

namespace opd::registration {

namespace {

constexpr std::size_t mostLines = 6; // a box must not outgrow the screen

/// The numbers that the search for similar records answered with; none where it answers something else.
std::vector<std::string> numbersOf(ado::Recordset rows) {
    std::vector<std::string> numbers;
    for (; data::hasColumn(rows, "HospNum") && !rows.EndOfFile(); rows.MoveNext())
        numbers.push_back(text::trimmed(data::textOf(rows, "HospNum")));
    return numbers;
}

std::string lineOf(const ado::Recordset& row) {
    const auto text = [&](const char* column) { return data::textOf(row, column); };
    std::vector<std::string> parts{"Hosp. # " + text::trimmed(text("HospNum")) + ": " + text::trimmed(text("LastName")),
                                   text("FirstName") + " " + text::trimmed(text("MiddleName")),
                                   "born " + text("BirthDate"), text("HouseStreet"), text("Barangay")};
    for (std::string& part : parts)
        part = text::trimmed(part);
    std::erase(parts, "");
    return text::joined(parts, ", ");
}

/// The namesakes whose numbers were found, and a line with the number alone for whom the database spells otherwise.
/// Where no numbers are known, the namesakes of that age.
std::vector<std::string> linesOf(const Session& session, ado::Recordset namesakes, std::vector<std::string> numbers,
                                 int age) {
    std::vector<std::string> lines;
    const bool byNumber = !numbers.empty();
    for (; !namesakes.EndOfFile(); namesakes.MoveNext()) {
        const auto found = std::find(numbers.begin(), numbers.end(), text::trimmed(data::textOf(namesakes, "HospNum")));
        const bool isMeant = byNumber ? found != numbers.end()
                                      : data::ComputeAge(session, data::textOf(namesakes, "BirthDate"), {}) == age;
        if (isMeant)
            lines.push_back(lineOf(namesakes));
        if (found != numbers.end())
            numbers.erase(found);
    }
    for (const std::string& number : numbers)
        lines.push_back("Hosp. # " + number);
    return lines;
}

} // namespace

std::string whoIsMeant(const Session& session, const HeaderFields& header, const ado::Recordset& similar) {
    std::vector<std::string> lines;
    try {
        lines = linesOf(
            session,
            data::openClient(session, statements::namesakes(header.txtLastName.text(), header.txtFirstName.text())),
            numbersOf(similar), static_cast<int>(text::leadingNumber(header.txtAge.text())));
    } catch (const std::exception& failure) {
        return std::string{"Who that is could not be read: "} + failure.what();
    }
    if (lines.size() > mostLines) {
        const std::string more = "and " + std::to_string(lines.size() - mostLines) + " more";
        lines.resize(mostLines);
        lines.push_back(more);
    }
    return text::joined(lines, "\r\n");
}

} // namespace opd::registration
