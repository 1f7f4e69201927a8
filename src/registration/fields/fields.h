#pragma once

#include "registration/fields/additional_tab.h"
#include "registration/fields/consultation_tab.h"
#include "registration/fields/employment_tab.h"
#include "registration/fields/header_fields.h"
#include "registration/fields/history_tab.h"
#include "registration/fields/personal_tab.h"

namespace opd::registration {

/// Every control of the registration form, a line each, in the order in which a clerk meets them. The control arrays
/// that reach over several tabs stand here; each tab adds its own members to them.
struct Fields {
    explicit Fields(ui::Container& form) : header(form), tabOPD(form, "tabOPD"), buttons(form) {
        // The road of Enter and Tab leads through what is typed; lookup buttons are pressed from their code field.
        cmdSearch.forEach([](int, ui::Button& lookup) { lookup.tabStop = false; });
        for (ui::Button* lookup :
             {&additional.cmdPatientClass, &consultation.searchChiefComplaint, &consultation.cmdCauseofConsultation1,
              &consultation.cmdCauseofConsultation2, &consultation.cmdCauseofConsultation3})
            lookup->tabStop = false;
        for (ui::TextBox* name :
             {&header.txtOPDNum, &header.txtHospNum, &header.txtAge, // what the system decides
              &personal.txtBarangayName, &additional.txtPatientClass, &additional.txtPictureLocation,
              &additional.txtPictureFileName, &consultation.txtCauseofConsultation1,
              &consultation.txtCauseofConsultation2, &consultation.txtCauseofConsultation3})
            showOnly(*name);
        for (ui::TextBox* name : namesOfCodes())
            showOnly(*name);
        nameForTheEar();
        explainShortLabels();
        header.txtBirthDate.offersCalendar = true;
    }

    ui::ControlArray<ui::Button> cmdSearch{"cmdSearch"};
    ui::ControlArray<ui::TextBox> txtPersonal{"txtPersonal"};
    ui::ControlArray<ui::TextBox> txtChiefComplaint{"txtChiefComplaint"};

    HeaderFields header;
    ui::Tabs tabOPD;
    PersonalTab personal{tabOPD, cmdSearch, txtPersonal};
    AdditionalTab additional{tabOPD, txtPersonal};
    ConsultationTab consultation{tabOPD, cmdSearch, txtChiefComplaint};
    HistoryTab history{tabOPD, cmdSearch, txtChiefComplaint};
    EmploymentTab employment{tabOPD};
    FormButtons buttons;

  private:
    static void showOnly(ui::TextBox& box) {
        box.tabStop = false;
        box.readOnly = true;
    }

    /// The names of controls that neither a caption nor what is around them tells.
    void nameForTheEar() {
        const std::pair<ui::Control*, const char*> names[] = {
            {&tabOPD, "Registration"},
            {&header.male, "Male"},
            {&header.female, "Female"},
            {&personal.txtBarangayID, "Barangay code"},
            {&personal.searchBarangay, "Look up Barangay"},
            {&personal.txtBarangayName, "Barangay name"},
            {&personal.accountName, "Account name"},
            {&personal.chkSeniorCitizen, "Senior Citizen"},
            {&personal.townName, "Town name"},
            {&personal.cmbPaycodeID, "Paycode"},
            {&personal.cmbPaycode, "Paycode name"},
            {&personal.txtSeniorCitizenID, "Senior Citizen No."},
            {&personal.txtSeniorID, "Senior Citizen discount No."},
            {&additional.picPatient, "Photograph"},
            {&additional.spouseEmployerAddress, "Spouse's employer: Address"},
            {&additional.spouseEmployerTelephone, "Spouse's employer: Tel. #"},
            {&consultation.systolic, "B.P. systolic"},
            {&consultation.diastolic, "B.P. diastolic"},
            {&consultation.chiefComplaintCode, "Complaint code"},
            {&consultation.chiefComplaintText, "Complaint"},
            {&consultation.searchChiefComplaint, "Look up Complaint"},
            {&history.txtMedHistory, "Other medical history"},
        };
        for (const auto& [control, name] : names)
            control->spokenName = name;
    }

    /// What the mouse is told where a label is short.
    void explainShortLabels() {
        const std::pair<ui::Control*, const char*> tips[] = {
            {&personal.barangayCaptain, "Barangay captain"},
            {&personal.notifyRelation, "Relation to the patient"},
            {&consultation.informantRelation, "Relation to the patient"},
            {&consultation.guarantorEmployerAddress, "Address of the employer"},
            {&additional.spouseEmployerName, "Name of the spouse's employer"},
            {&consultation.systolic, "Blood pressure, the higher value"},
            {&consultation.diastolic, "Blood pressure, the lower value"},
            {&consultation.txtRespRate, "Respiratory rate"},
            {&additional.txtLOAAmount, "Amount of the letter of authorization"},
            {&personal.purposeHema, "Hematology and oncology"},
        };
        for (const auto& [control, tip] : tips)
            control->tip = tip;
    }

    /// The boxes of control arrays that show what a code stands for; nobody types there.
    std::vector<ui::TextBox*> namesOfCodes() const {
        std::vector<ui::TextBox*> names{&personal.townName, &personal.nationalityName, &personal.religionName,
                                        &personal.accountName};
        for (const int index : {1, 3, 5}) {
            names.push_back(&consultation.txtService(index));
            names.push_back(&consultation.txtAddDoctor(index));
        }
        for (const int index : {1, 3})
            names.push_back(&consultation.txtDoctor(index));
        for (int index = 5; index <= 9; ++index)
            names.push_back(&history.txtAllergy(index));
        return names;
    }
};

} // namespace opd::registration
