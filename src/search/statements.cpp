#include "search/statements.h"

#include "base/text/text.h"

namespace opd::search {

using ado::Statement;

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

Statement doctorSearch(const std::string& serviceCode, const std::string& criteria, DoctorSearch kind) {
    return Statement("BUILD_FILE..sp_Bui_Search_Doctor '")
        .value(serviceCode)
        .text("', '")
        .value(criteria)
        .text("','','")
        .number(static_cast<int>(kind))
        .text("'");
}

Statement doctorsOfService(const std::string& serviceCode, bool allDoctors) {
    return Statement("Build_File..global_SearchDoctor_By_Specialization '")
        .value(serviceCode)
        .text("',")
        .number(allDoctors ? 1 : 0);
}

Statement barangaySearch(const std::string& code) {
    return Statement("Patient_Data..sp_Adm_SearchBarangay '").value(code).text("'");
}

Statement admissionTypeSearch(const std::string& code) {
    return Statement("PATIENT_DATA..sp_Adm_SearchAdmissionType '").value(code).text("'");
}

Statement complaintSearch(const std::string& text) {
    return Statement("PATIENT_DATA..sp_AOPD_SearchChiefComplaint '").value(text).text("'");
}

Statement serviceOf(const std::string& code) {
    return Statement("Patient_Data..sp_Adm_LoadService '").value(code).text("'");
}

Statement allergyOf(const std::string& code) {
    return Statement("Patient_Data..sp_Adm_LoadAllergy '").value(code).text("'");
}

Statement doctorOf(const std::string& code) {
    return Statement("Patient_Data..sp_Adm_LoadDoctor '").value(code).text("'");
}

} // namespace opd::search
