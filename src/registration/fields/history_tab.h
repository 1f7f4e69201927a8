#pragma once

#include "registration/fields/column_widths.h"
#include "ui/coded_field.h"

namespace opd::registration {

/// Tab "Diagnosis & History".
struct HistoryTab {
    explicit HistoryTab(ui::Tabs& tabs, ui::ControlArray<ui::Button>& lookups,
                        ui::ControlArray<ui::TextBox>& complaints)
        : page(tabs, "pageHistory", "Diagnosis && History"), cmdSearch(lookups), txtChiefComplaint(complaints) {
        for (ui::TextBox* box : {&complaint, &txtDiagnosis})
            box->multiLine = true;
        txtDiagnosis.hint = "A note for the screen: no visit stores it.";
        txtMedHistory.spokenName = "Other medical history";
    }

    ui::Page page;
    ui::ControlArray<ui::Button>& cmdSearch;
    ui::ControlArray<ui::TextBox>& txtChiefComplaint;

    ui::Frame complaintFrame{page, "fraComplaint", "Chief Complaint"};
    ui::TextBox& complaint = txtChiefComplaint.add(complaintFrame, 1);

    ui::Frame diagnosis{page, "fraDiagnosis", "Admitting Diagnosis"};
    ui::TextBox txtDiagnosis{diagnosis, "txtDiagnosis"};

    ui::Frame allergies{page, "fraAllergies", "Allergies"};
    ui::ControlArray<ui::TextBox> txtAllergy{"txtAllergy", 10};
    ui::CodedField allergy1{txtAllergy.add(allergies, 0, "1", widths::code), cmdSearch.add(allergies, 10, "..."),
                            txtAllergy.add(allergies, 5)};
    ui::CodedField allergy2{txtAllergy.add(allergies, 1, "2", widths::code), cmdSearch.add(allergies, 11, "..."),
                            txtAllergy.add(allergies, 6)};
    ui::CodedField allergy3{txtAllergy.add(allergies, 2, "3", widths::code), cmdSearch.add(allergies, 12, "..."),
                            txtAllergy.add(allergies, 7)};
    ui::CodedField allergy4{txtAllergy.add(allergies, 3, "4", widths::code), cmdSearch.add(allergies, 13, "..."),
                            txtAllergy.add(allergies, 8)};
    ui::CodedField allergy5{txtAllergy.add(allergies, 4, "5", widths::code), cmdSearch.add(allergies, 14, "..."),
                            txtAllergy.add(allergies, 9)};

    ui::Frame lastMenstruation{page, "fraLMP", "Last Menstruation Period"};
    ui::MaskedBox txtLMP{lastMenstruation, "txtLMP"};

    ui::Frame medicalHistory{page, "fraMedHistory", "Medical History"};
    ui::ControlArray<ui::CheckBox> MedHistory{"MedHistory", 9};
    ui::CheckBox& hypertension = MedHistory.add(medicalHistory, 0, "Hypertension");
    ui::CheckBox& diabetes = MedHistory.add(medicalHistory, 1, "Diabetes");
    ui::CheckBox& hepatitis = MedHistory.add(medicalHistory, 2, "Hepatitis");
    ui::CheckBox& allergic = MedHistory.add(medicalHistory, 3, "Allergies");
    ui::CheckBox& tuberculosis = MedHistory.add(medicalHistory, 4, "Tuberculosis");
    ui::CheckBox& pepticUlcer = MedHistory.add(medicalHistory, 5, "Peptic Ulcer");
    ui::CheckBox& bloodDisease = MedHistory.add(medicalHistory, 6, "Blood Disease");
    ui::CheckBox& bronchialAsthma = MedHistory.add(medicalHistory, 7, "Bronchial Asthma");
    ui::CheckBox& others = MedHistory.add(medicalHistory, 8, "Others");
    ui::TextBox txtMedHistory{medicalHistory, "txtMedHistory", "", 100};
};

} // namespace opd::registration
