#pragma once

#include "registration/fields/column_widths.h"
#include "ui/coded_field.h"

#include <array>

namespace opd::registration {

/// Tab "Consultation Information": who pays and who tells, what the patient comes for, who attends, and the vital
/// signs.
struct ConsultationTab {
    explicit ConsultationTab(ui::Tabs& tabs, ui::ControlArray<ui::Button>& lookups,
                             ui::ControlArray<ui::TextBox>& complaints)
        : page(tabs, "pageConsultation", "Consultation Information"), cmdSearch(lookups),
          txtChiefComplaint(complaints) {
        complaint.code.spokenName = "Complaint code";
        complaint.lookup.spokenName = "Look up Complaint";
        complaint.name.spokenName = "Complaint";
        complaint.name.readOnly = false; // a complaint that has no code is written here
        complaint.name.tabStop = true;
        systolic.spokenName = "B.P. systolic";
        systolic.tip = "Blood pressure, the higher value";
        diastolic.spokenName = "B.P. diastolic";
        diastolic.tip = "Blood pressure, the lower value";
        informantRelation.tip = "Relation to the patient";
        guarantorEmployerAddress.tip = "Address of the employer";
        txtRespRate.tip = "Respiratory rate";
    }

    ui::Page page;
    ui::ControlArray<ui::Button>& cmdSearch;
    ui::ControlArray<ui::TextBox>& txtChiefComplaint;

    ui::Frame guarantor{page, "fraGuarantor", "Responsi&ble for the Patient's Account "};
    ui::ControlArray<ui::TextBox> txtGuarantor{"txtGuarantor", 5};
    ui::TextBox& guarantorName = txtGuarantor.add(guarantor, 0, "Name", 50);
    ui::TextBox& guarantorAddress = txtGuarantor.add(guarantor, 1, "Address", 50);
    ui::TextBox& guarantorTelephone = txtGuarantor.add(guarantor, 3, "Tel. #", 50);
    ui::TextBox& guarantorEmployer = txtGuarantor.add(guarantor, 2, "Employer", 15);
    ui::TextBox& guarantorEmployerAddress = txtGuarantor.add(guarantor, 4, "Emp. Add.", 15);

    ui::Frame informant{page, "fraInformant", "Informant"};
    ui::ControlArray<ui::TextBox> txtInformant{"txtInformant", 4};
    ui::TextBox& informantName = txtInformant.add(informant, 0, "Name", 50);
    ui::TextBox& informantAddress = txtInformant.add(informant, 1, "Address", 50);
    ui::TextBox& informantTelephone = txtInformant.add(informant, 2, "Tel. #", 15);
    ui::TextBox& informantRelation = txtInformant.add(informant, 3, "Rel.to Px", 30);

    ui::Frame chiefComplaint{page, "fraChiefComplaint", "Che&if Complaint"};
    ui::ControlArray<ui::TextBox> txtChiefComplaintID{"txtChiefComplaintID", 1};
    ui::ControlArray<ui::Button> cmdSearchChiefComplaint{"cmdSearchChiefComplaint", 1};
    ui::CodedField complaint{txtChiefComplaintID.add(chiefComplaint, 0, "", widths::code),
                             cmdSearchChiefComplaint.add(chiefComplaint, 0, "..."),
                             txtChiefComplaint.add(chiefComplaint, 0)};

    ui::Frame services{page, "fraServices", "Ser&vices"};
    ui::ControlArray<ui::TextBox> txtService{"txtService", 6};
    ui::CodedField service1{txtService.add(services, 0, "1", widths::code), cmdSearch.add(services, 0, "..."),
                            txtService.add(services, 1)};
    ui::CodedField service2{txtService.add(services, 2, "2", widths::code), cmdSearch.add(services, 1, "..."),
                            txtService.add(services, 3)};
    ui::CodedField service3{txtService.add(services, 4, "3", widths::code), cmdSearch.add(services, 2, "..."),
                            txtService.add(services, 5)};

    ui::Frame doctors{page, "fraDoctors", "Attending &Doctors"};
    ui::ControlArray<ui::TextBox> txtDoctor{"txtDoctor", 4};
    ui::CodedField doctor1{txtDoctor.add(doctors, 0, "1", widths::code), cmdSearch.add(doctors, 6, "..."),
                           txtDoctor.add(doctors, 1)};
    ui::CodedField doctor2{txtDoctor.add(doctors, 2, "2", widths::code), cmdSearch.add(doctors, 7, "..."),
                           txtDoctor.add(doctors, 3)};
    ui::ControlArray<ui::TextBox> txtAddDoctor{"txtAddDoctor", 6};
    ui::CodedField doctor3{txtAddDoctor.add(doctors, 0, "3", widths::code), cmdSearch.add(doctors, 15, "..."),
                           txtAddDoctor.add(doctors, 1)};
    ui::CodedField doctor4{txtAddDoctor.add(doctors, 2, "4", widths::code), cmdSearch.add(doctors, 16, "..."),
                           txtAddDoctor.add(doctors, 3)};
    ui::CodedField doctor5{txtAddDoctor.add(doctors, 4, "5", widths::code), cmdSearch.add(doctors, 17, "..."),
                           txtAddDoctor.add(doctors, 5)};

    ui::Frame causes{page, "fraCauses", "Causes of Consul&tation"};
    ui::TextBox txtCauseofConsultationID1{causes, "txtCauseofConsultationID1", "1", widths::code};
    ui::Button cmdCauseofConsultation1{causes, "cmdCauseofConsultation1", "..."};
    ui::TextBox txtCauseofConsultation1{causes, "txtCauseofConsultation1"};
    ui::CodedField cause1{txtCauseofConsultationID1, cmdCauseofConsultation1, txtCauseofConsultation1};
    ui::TextBox txtCauseofConsultationID2{causes, "txtCauseofConsultationID2", "2", widths::code};
    ui::Button cmdCauseofConsultation2{causes, "cmdCauseofConsultation2", "..."};
    ui::TextBox txtCauseofConsultation2{causes, "txtCauseofConsultation2"};
    ui::CodedField cause2{txtCauseofConsultationID2, cmdCauseofConsultation2, txtCauseofConsultation2};
    ui::TextBox txtCauseofConsultationID3{causes, "txtCauseofConsultationID3", "3", widths::code};
    ui::Button cmdCauseofConsultation3{causes, "cmdCauseofConsultation3", "..."};
    ui::TextBox txtCauseofConsultation3{causes, "txtCauseofConsultation3"};
    ui::CodedField cause3{txtCauseofConsultationID3, cmdCauseofConsultation3, txtCauseofConsultation3};

    ui::Frame vitalSigns{page, "fraVitalSign", "Vital Si&gn"};
    ui::ControlArray<ui::TextBox> txtBP{"txtBP", 2};
    ui::TextBox& systolic = txtBP.add(vitalSigns, 0, "B.P.", 3);
    ui::TextBox& diastolic = txtBP.add(vitalSigns, 1, "/", 3);
    ui::TextBox txtTemperature{vitalSigns, "txtTemperature", "Temperature", widths::text};
    ui::TextBox txtPR{vitalSigns, "txtPR", "Pulse Rate", widths::text};
    ui::TextBox txtRespRate{vitalSigns, "txtRespRate", "Resp. Rate", widths::text};
    ui::TextBox txtHeight{vitalSigns, "txtHeight", "Height", widths::text};
    ui::TextBox txtWeight{vitalSigns, "txtWeight", "Weight", widths::text};
    ui::TextBox txtBloodType{vitalSigns, "txtBloodType", "Blood Type", widths::text};

    ui::Frame unit{page, "fraUnit", "Unit"};
    ui::OptionButton optLying{unit, "optLying", "Lying In"};
    ui::OptionButton optEndoscopy{unit, "optEndoscopy", "Endoscopy"};
    ui::OptionButton optMiniOR{unit, "optMiniOR", "Mini OR"};
    ui::OptionButton optDiabetes{unit, "optDiabetes", "Diabetes Educ. Clinic"};
    const std::array<ui::OptionButton*, 4> units{&optLying, &optEndoscopy, &optMiniOR,
                                                 &optDiabetes}; ///< codes "1" to "4"

    ui::Frame patientType{page, "fraPatientType", "Patient Type"};
    ui::ControlArray<ui::OptionButton> optPatientType{"optPatientType", 4};
    ui::OptionButton& corvaneType = optPatientType.add(patientType, 2, "CORVANE");
    ui::OptionButton& regularType = optPatientType.add(patientType, 3, "Regular");

    ui::Frame consultationType{page, "fraConsType", "Consultation T&ype"};
    ui::ControlArray<ui::OptionButton> optConsType{"optConsType", 2};
    ui::OptionButton& withBill = optConsType.add(consultationType, 1, "With Bill");
    ui::OptionButton& withoutBill = optConsType.add(consultationType, 0, "Without Bill");
};

} // namespace opd::registration
