#include "host/history_words.h"

#include "ado/error.h"
#include "ado/recordset.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"

#include <map>
#include <vector>

namespace opd::host {

namespace {

/// What the values of a column are.
struct Coded {
    const char* table = nullptr; ///< of Build_File
    const char* code = nullptr;
    const char* name = nullptr;
};
constexpr Coded none;
constexpr Coded allergy{"tbCoAllergy", "AllergyID", "Allergy"};

struct Column {
    const char* word;
    std::vector<const char*> values; ///< what 0, 1, 2 ... mean
    Coded coded = none;
};

const std::vector<const char*> marks{"no", "yes"};

const std::map<std::string, Column> columns{
    {"LastName", {"Last name", {}}},
    {"FirstName", {"First name", {}}},
    {"MiddleName", {"Middle name", {}}},
    {"Title", {"Title", {}}},
    {"HouseStreet", {"House no. and street", {}}},
    {"Barangay", {"Barangay", {}}},
    {"ZipCode", {"Town", {}, {"tbCoAddress", "ZipCode", "Town"}}},
    {"Sex", {"Sex", {}}},
    {"BirthDate", {"Birth date", {}}},
    {"telnum", {"Telephone", {}}},
    {"CivilStatus", {"Civil status", {"child", "single", "married", "widow", "separated", "divorced"}}},
    {"BloodType", {"Blood type", {}}},
    {"Occupation", {"Occupation", {}}},
    {"Employer", {"Employer", {}}},
    {"EmployerAddress", {"Employer's address", {}}},
    {"EmployerTelNum", {"Employer's telephone", {}}},
    {"AllergyID1", {"Allergy 1", {}, allergy}},
    {"AllergyID2", {"Allergy 2", {}, allergy}},
    {"AllergyID3", {"Allergy 3", {}, allergy}},
    {"AllergyID4", {"Allergy 4", {}, allergy}},
    {"AllergyID5", {"Allergy 5", {}, allergy}},
    {"BirthPlace", {"Birth place", {}}},
    {"NationalityID", {"Nationality", {}, {"tbCoNationality", "NationalityID", "Nationality"}}},
    {"ReligionID", {"Religion", {}, {"tbCoReligion", "ReligionID", "Religion"}}},
    {"Spouse", {"Spouse", {}}},
    {"mother", {"Mother", {}}},
    {"Father", {"Father", {}}},
    {"ContactName", {"To notify", {}}},
    {"ContactAddress", {"To notify: address", {}}},
    {"ContactRelation", {"To notify: relation", {}}},
    {"ContactTelNum", {"To notify: telephone", {}}},
    {"SpouseAddress", {"Spouse's address", {}}},
    {"SpouseTelNum", {"Spouse's telephone", {}}},
    {"FatherAddress", {"Father's address", {}}},
    {"FatherTelNum", {"Father's telephone", {}}},
    {"motherAddress", {"Mother's address", {}}},
    {"motherTelNum", {"Mother's telephone", {}}},
    {"BarangayCaptain", {"Barangay captain", {}}},
    {"Position", {"Position", {}}},
    {"EmploymentType", {"Employment", {"not told", "self-employed", "private", "government"}}},
    {"EmploymentLocation", {"Employed", {"not told", "local", "abroad"}}},
    {"EmployerFax", {"Employer's fax", {}}},
    {"EmployerEmail", {"Employer's e-mail", {}}},
    {"SpouseEmpName", {"Spouse's employer", {}}},
    {"SpouseEmpAddress", {"Spouse's employer: address", {}}},
    {"SpouseEmpTelNum", {"Spouse's employer: tel.", {}}},
    {"SpouseEmpFax", {"Spouse's employer: fax", {}}},
    {"SpouseEmpEmail", {"Spouse's employer: e-mail", {}}},
    {"PhilHealth", {"PHIC member", marks}},
    {"HouseHold", {"Household members", {}}},
    {"Email", {"E-mail", {}}},
    {"CellNum", {"Mobile number", {}}},
    {"Hypertension", {"Hypertension", marks}},
    {"Diabetes", {"Diabetes", marks}},
    {"Hepatitis", {"Hepatitis", marks}},
    {"Allergies", {"Allergies", marks}},
    {"Tubercolosis", {"Tuberculosis", marks}},
    {"PepticUlcer", {"Peptic ulcer", marks}},
    {"BloodDisease", {"Blood disease", marks}},
    {"BronchialAsthma", {"Bronchial asthma", marks}},
    {"Others", {"Other history", {}}},
};

std::string nameOf(ado::Connection& connection, const Coded& coded, const std::string& code) {
    try {
        ado::Recordset found;
        found.Open(ado::Statement("Select ")
                       .identifier(coded.name)
                       .text(" from Build_File..")
                       .identifier(coded.table)
                       .text(" where ")
                       .identifier(coded.code)
                       .text(" = '")
                       .value(code)
                       .text("'"),
                   connection);
        return found.EndOfFile() ? std::string{} : found.Fields(coded.name).asText();
    } catch (const ado::Error&) {
        return {}; // auditors need no right to read the lists
    }
}

std::string onOneLine(const std::string& value) {
    std::string line;
    for (const char character : value)
        if (character == '\n')
            line += " / ";
        else if (character != '\r')
            line += character;
    return line;
}

} // namespace

std::string columnInWords(const std::string& column) {
    const auto known = columns.find(column);
    return known == columns.end() ? column : known->second.word;
}

std::string valueInWords(ado::Connection& connection, const std::string& column, const std::string& value) {
    if (text::isBlank(value))
        return "(nothing)";
    const auto known = columns.find(column);
    if (known == columns.end())
        return onOneLine(value);
    const auto& [word, values, coded] = known->second;
    if (column == "BirthDate")
        if (const std::optional<DateTime> day = parseDate(value))
            return dateText(*day);
    if (!values.empty() && value.size() == 1 && static_cast<std::size_t>(value[0] - '0') < values.size())
        return values[static_cast<std::size_t>(value[0] - '0')];
    const std::string name = coded.table == nullptr ? std::string{} : nameOf(connection, coded, value);
    return name.empty() ? onOneLine(value) : value + " " + name;
}

} // namespace opd::host
