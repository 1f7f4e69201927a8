#include "registration/statements/patient_statements.h"

#include "base/text/text.h"
#include "registration/record/codes.h"
#include "registration/record/extended_texts.h"

namespace opd::registration {

using ado::Statement;
using Values = std::vector<std::string>;

namespace {

std::string barangay(const PersonalTab& personal, bool coded) {
    return text::upper(coded ? personal.txtBarangayID.text() : personal.txtBarangay.text());
}

/// The arguments that every client's list begins with.
Values commonMaster(const Fields& fields, const Record& record, bool codesBarangays) {
    const HeaderFields& header = fields.header;
    const PersonalTab& personal = fields.personal;
    const ConsultationTab& consultation = fields.consultation;
    const EmploymentTab& employment = fields.employment;
    return {record.SaveHospNum,
            text::upper(header.txtLastName.text()),
            text::upper(header.txtFirstName.text()),
            text::upper(header.txtMiddleName.text()),
            text::upper(personal.txtHouseStreet.text()),
            barangay(personal, codesBarangays),
            personal.txtZipCode.text(),
            text::trimmed(record.SexCode),
            text::trimmed(record.BirthDateText),
            text::upper(personal.telephone.text()),
            text::trimmed(header.txtAge.text()),
            employment.employerName.text(),
            employment.employerAddress.text(),
            employment.employerTelephone.text(),
            savedVisit(record),
            consultation.guarantorName.text(),
            consultation.guarantorAddress.text(),
            consultation.guarantorTelephone.text(),
            consultation.guarantorEmployer.text(),
            consultation.informantName.text(),
            consultation.informantAddress.text(),
            consultation.informantRelation.text(),
            consultation.informantTelephone.text(),
            record.CivilStatusCode,
            consultation.guarantorEmployerAddress.text()};
}

std::string valueOf(MasterArgument argument, const Fields& fields) {
    const PersonalTab& personal = fields.personal;
    switch (argument) {
    case MasterArgument::Religion:
        return personal.txtReligion.text();
    case MasterArgument::SeniorMark:
        return std::to_string(personal.chkSeniorCitizen.value());
    case MasterArgument::SeniorNumber:
        return personal.txtSeniorCitizenID.text();
    case MasterArgument::Occupation:
        return personal.occupation.text();
    case MasterArgument::BloodType:
        return fields.consultation.txtBloodType.text();
    case MasterArgument::Title:
        return fields.header.txtTitle.text();
    }
    return {};
}

/// Adds the texts as the extended master takes them.
void addGraved(Values& values, const ExtendedTexts<const Fields>& texts) {
    for (const auto& [column, box] : texts)
        values.push_back(text::replaced(box.text(), "'", "`"));
}

} // namespace

Statement updateMaster(const Fields& fields, const Record& record, const ClientProfile& client, bool codesBarangays) {
    Values values = commonMaster(fields, record, codesBarangays);
    for (const MasterArgument argument : client.master)
        values.push_back(valueOf(argument, fields));
    return Statement("Patient_Data..sp_aopd_Update_TbMaster  '").values(values, "', '").text("'");
}

Statement saveAllergies(const Fields& fields, const Record& record) {
    Values values{record.SaveHospNum};
    for (int n = 0; n < 5; ++n)
        values.push_back(text::trimmed(fields.history.txtAllergy(n).text()));
    return Statement("Patient_Data..sp_AOPD_Save_TbMasterAllergies '").values(values, "', '").text("'");
}

Statement updateExtendedMaster(const Fields& fields, const Record& record) {
    const EmploymentTab& employment = fields.employment;
    Values first{record.SaveHospNum};
    addGraved(first, peopleTexts(fields));
    Values last;
    addGraved(last, employerTexts(fields));
    last.insert(last.end(), {record.PhilHealthKept.sent(philHealthCode(employment)), ""});
    addGraved(last, contactTexts(fields));
    last.push_back(fields.personal.mobile.text());
    return Statement("Patient_Data..sp_Adm_UpdateMaster2 '")
        .values(first, "','")
        .text("',")
        .bareWord(record.EmploymentTypeKept.sent(employmentTypeCode(employment)))
        .text(",")
        .bareWord(record.EmploymentLocationKept.sent(employmentLocationCode(employment)))
        .text(",'")
        .values(last, "','")
        .text("' ");
}

Statement updateMedicalHistory(const Fields& fields, const Record& record) {
    const HistoryTab& history = fields.history;
    Statement statement("Patient_Data..proc_Adm_Update_tbMasterMedicalHistory '");
    statement.value(record.SaveHospNum).text("'");
    constexpr int conditions = 8;
    for (int n = 0; n < conditions; ++n)
        statement.text(", ").number(history.MedHistory(n).checked() ? 1 : 0);
    return statement.text(", '").value(history.others.checked() ? history.txtMedHistory.text() : "").text("'");
}

} // namespace opd::registration
