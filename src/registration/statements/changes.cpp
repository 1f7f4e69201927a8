#include "registration/statements/changes.h"

namespace opd::registration::statements {

using ado::Statement;

Statement newHospNum() {
    return "Patient_Data..sp_adm_GetNewHospNum";
}

Statement newOpdNumber() {
    return "Patient_Data..sp_aopd_GetNewOPDID";
}

Statement deleteDependents(const std::string& hospNum) {
    return Statement("Delete Patient_Data..tbMasterDependent where SeqNum = '").value(hospNum).text("'");
}

Statement saveDependent(const std::string& hospNum, const std::string& name, const std::string& birthDate) {
    return Statement("Patient_Data..sp_Adm_SaveDependents  ")
        .bareWord(hospNum)
        .text(", '")
        .values({name, birthDate}, "', '")
        .text("' ");
}

Statement revokeVisit(const std::string& visit) {
    return Statement("update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '").value(visit).text("'");
}

Statement restoreVisit(const std::string& visit) {
    return Statement("update Patient_Data..tboutpatient set opdstatus = '' where idnum = '").value(visit).text("'");
}

Statement logRevoke(const std::string& visit, const std::string& user, const std::string& action) {
    return Statement("Patient_Data..sp_AOPD_SaveOPDRevokedLog '").values({visit, user, action}, "','").text("'");
}

Statement endConsultation(const std::string& visit) {
    return Statement("Patient_Data..OPD_updateConsultationDate '").value(visit).text("'");
}

} // namespace opd::registration::statements
