#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace opd::tests {

/// "procedure 'a', 'b'".
inline std::string callOf(const std::string& procedure, const std::vector<std::string>& values) {
    std::string text = "Patient_Data.." + procedure + "  '";
    for (std::size_t i = 0; i < values.size(); ++i)
        text += (i == 0 ? "" : "', '") + values[i];
    return text + "'";
}

/// The values of a line that "|" parts, behind those that come first.
inline std::vector<std::string> valuesOf(std::vector<std::string> values, const std::string& line) {
    std::istringstream all(line);
    for (std::string value; std::getline(all, value, '|');)
        values.push_back(value);
    return values;
}

/// The master of a patient as a save writes it, with another text in every argument.
inline std::vector<std::string> masterValues(const std::string& hospNum, const std::string& visit) {
    std::vector<std::string> values =
        valuesOf({hospNum}, "NUÑEZ-DELA CRUZ|JOSÉ MA.|O`HARA|12 RIZAL ST., UNIT #4|SAN JOSE|1000|M|03/07/1980|"
                            "02-555 1234|46|EMPLOYER & SONS|EMP ADDRESS|EMP TEL");
    values.push_back(visit);
    return valuesOf(values, "GUARANTOR|GUA ADDRESS|GUA TEL|GUA EMPLOYER|INFORMANT|INF ADDRESS|INF RELATION|INF TEL|2|"
                            "GUA EMP ADDR|1|SENIOR-ID-NO|OCCUPATION|AB+|DR.");
}

/// The extended record as a save writes it, with two texts in it.
inline std::string extendedRecord(const std::string& hospNum, const std::string& birthPlace = "",
                                  const std::string& employmentType = "0") {
    std::string text = callOf("sp_Adm_UpdateMaster2", {hospNum, birthPlace});
    for (int argument = 3; argument <= 36; ++argument)
        text += argument == 23 ? "," + employmentType : argument == 24 || argument == 32 ? ",0" : ",''";
    return text;
}

/// The visit as a save writes it.
inline std::vector<std::string> visitValues(const std::string& hospNum, const std::string& visit) {
    return valuesOf({hospNum, visit},
                    "|REMARKS; -- \"x\" %_[|1|2|3|||D001|D002 |P||70.5|37.2|120/80|N|CLERK|07/01/2026 09:05 AM|"
                    "FEVER, 3 days|72|CARD-7|W|R|ACCOUNT REMARKS|170|3||1|18|APPROVAL|1|1");
}

} // namespace opd::tests
