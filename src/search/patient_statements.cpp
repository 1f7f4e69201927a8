#include "search/patient_statements.h"

#include "base/text/text.h"

namespace opd::search {

using data::Statement;

Statement cardSearch(const std::string& hospNum) {
    return Statement("Patient_Data..proc_Bar_Search_Patient '").value(text::trimmed(hospNum)).text("','5'");
}

Statement memberSearch(const std::string& number, MemberNumber kind) {
    return Statement("Patient_Data..sp_Adm_MasterPatientSearchNew '")
        .value(text::trimmed(number))
        .text("','")
        .number(static_cast<int>(kind))
        .text("'");
}

Statement nameSearch(const std::string& lastName, const std::string& sex, const std::string& birthDate) {
    // First and middle name are not asked for, and a hospital number would have made this a card search.
    const std::string none;
    return Statement("Patient_Data..sp_Adm_MasterPatientSearch '")
        .values({text::trimmed(lastName), none, none, text::trimmed(sex), none, text::trimmed(birthDate)}, "','")
        .text("',")
        .number(0)
        .text(",")
        .number(0);
}

Statement subSearch(const std::string& lastName, const std::string& sex, const std::string& birthDate) {
    return Statement("Patient_Data..sp_Adm_MasterPatientSubSearch '")
        .values({text::trimmed(lastName), text::trimmed(sex), text::trimmed(birthDate)}, "','")
        .text("'");
}

} // namespace opd::search
