#pragma once

#include "registration/fields/column_widths.h"
#include "ui/coded_field.h"

namespace opd::registration {

/// Tab "Personal Information": where the patient lives, who the patient's people are, and who pays.
struct PersonalTab {
    explicit PersonalTab(ui::Tabs& tabs, ui::ControlArray<ui::Button>& lookups, ui::ControlArray<ui::TextBox>& personal)
        : page(tabs, "pagePersonal", "Personal Information"), cmdSearch(lookups), txtPersonal(personal) {
        txtSeniorID.hint = "A note for the screen: a visit stores the number beside \"Senior Citizen    No:\".";
        txtBarangayID.spokenName = "Barangay code";
        searchBarangay.spokenName = "Look up Barangay";
        txtBarangayName.spokenName = "Barangay name";
        town.name.spokenName = "Town name";
        barangayCaptain.tip = "Barangay captain";
        purposeHema.tip = "Hematology and oncology";
        company.name.spokenName = "Account name";
        cmbPaycodeID.spokenName = "Paycode";
        cmbPaycode.spokenName = "Paycode name";
        chkSeniorCitizen.spokenName = "Senior Citizen";
        txtSeniorCitizenID.spokenName = "Senior Citizen No.";
        txtSeniorID.spokenName = "Senior Citizen discount No.";
        notifyRelation.tip = "Relation to the patient";
    }

    ui::Page page;
    ui::ControlArray<ui::Button>& cmdSearch;
    ui::ControlArray<ui::TextBox>& txtPersonal;

    ui::Frame address{page, "fraAddress", "&Address"};
    ui::TextBox txtHouseStreet{address, "txtHouseStreet", "House/St.#", 100};
    ui::TextBox txtBarangay{address, "txtBarangay", "Barangay", 100};
    ui::TextBox txtBarangayID{address, "txtBarangayID", "Barangay", widths::code};
    ui::Button& searchBarangay = cmdSearch.add(address, 8, "...");
    ui::TextBox txtBarangayName{address, "txtBarangayName", "", 100};
    ui::CodedField barangay{txtBarangayID, searchBarangay, txtBarangayName};
    ui::TextBox txtZipCode{address, "txtZipCode", "Town/Prov.", widths::zipCode};
    ui::ControlArray<ui::TextBox> txtZipCodeName{"txtZipCodeName", 5};
    ui::CodedField town{txtZipCode, cmdSearch.add(address, 9, "..."), txtZipCodeName.add(address, 4, "", 30)};
    ui::ControlArray<ui::TextBox> txtTelNum{"txtTelNum", 3};
    ui::TextBox& telephone = txtTelNum.add(address, 2, "Tel.#", 15);

    ui::Frame particulars{page, "fraParticulars", "Personal"};
    ui::TextBox& birthPlace = txtPersonal.add(particulars, 0, "Birth Place", 30);
    ui::ComboBox cboCivilStatus{particulars,
                                "cboCivilStatus",
                                "Civil Status",
                                {"Child", "Single", "Married", "Widow", "Separated", "Divorced"}};
    ui::TextBox& occupation = txtPersonal.add(particulars, 5, "Occupation", 30);
    ui::TextBox txtNationality{particulars, "txtNationality", "Nationality", widths::code};
    ui::CodedField nationality{txtNationality, cmdSearch.add(particulars, 3, "..."), txtPersonal.add(particulars, 6)};
    ui::TextBox txtReligion{particulars, "txtReligion", "Religion", widths::code};
    ui::CodedField religion{txtReligion, cmdSearch.add(particulars, 4, "..."), txtPersonal.add(particulars, 7)};
    ui::TextBox txtEmail{particulars, "txtEmail", "E-mail", widths::text};
    ui::TextBox& mobile = txtPersonal.add(particulars, 11, "Mobile #", widths::text);
    ui::TextBox& household = txtPersonal.add(particulars, 13, "No. of HouseHold", widths::text);
    ui::TextBox& barangayCaptain = txtPersonal.add(particulars, 9, "Brgy.Capt.", 30);

    ui::Frame father{page, "fraFather", "&Father"};
    ui::ControlArray<ui::TextBox> txtFather{"txtFather", 3};
    ui::TextBox& fatherName = txtFather.add(father, 0, "Name", 50);
    ui::TextBox& fatherAddress = txtFather.add(father, 1, "Address", 50);
    ui::TextBox& fatherTelephone = txtFather.add(father, 2, "Tel. #", 15);

    ui::Frame mother{page, "fraMother", "&Mother"};
    ui::ControlArray<ui::TextBox> txtMother{"txtMother", 3};
    ui::TextBox& motherName = txtMother.add(mother, 0, "Name", 50);
    ui::TextBox& motherAddress = txtMother.add(mother, 1, "Address", 50);
    ui::TextBox& motherTelephone = txtMother.add(mother, 2, "Tel. #", 15);

    ui::Frame plan{page, "fraHospPlan", "&Hospitalization Plan"};
    ui::ControlArray<ui::OptionButton> optHospPlan{"optHospPlan", 3};
    ui::OptionButton& planPersonal = optHospPlan.add(plan, 0, "Personal");
    ui::OptionButton& planCompany = optHospPlan.add(plan, 1, "Company");
    ui::OptionButton& planInsurance = optHospPlan.add(plan, 2, "Insurance/HMO");

    ui::Frame insurance{page, "fraInsurance", "&With Health Insurance / HMO?"};
    ui::ControlArray<ui::OptionButton> optInsurance{"optInsurance", 2};
    ui::OptionButton& insured = optInsurance.add(insurance, 0, "Yes");
    ui::OptionButton& notInsured = optInsurance.add(insurance, 1, "No");

    ui::Frame purpose{page, "fraPurpose", "OPD Purpose"};
    ui::ControlArray<ui::CheckBox> chkPurpose{"chkPurpose", 2};
    ui::CheckBox& purposeRicu = chkPurpose.add(purpose, 0, "RICU");
    ui::CheckBox& purposeHema = chkPurpose.add(purpose, 1, "HEMA/ONCO");

    ui::Frame account{page, "fraAccount", "Acc&ount"};
    ui::Label lblPaycode{account, "lblPaycode", "Paycode"};
    ui::ComboBox cmbPaycodeID{account, "cmbPaycodeID"};
    ui::ComboBox cmbPaycode{account, "cmbPaycode"};
    ui::ControlArray<ui::TextBox> txtAccount{"txtAccount", 2};
    ui::CodedField company{txtAccount.add(account, 0, "Account #", widths::code), cmdSearch.add(account, 5, "..."),
                           txtAccount.add(account, 1)};
    ui::Label lblCardNum{account, "lblCardNum", "Card #"};
    ui::TextBox txtCardNum{account, "txtCardNum", "", widths::text};
    ui::TextBox txtARemarks{account, "txtARemarks", "Remarks"};

    ui::Frame programmes{page, "fraProgrammes", "Programmes"};
    ui::CheckBox chkWalkIn{programmes, "chkWalkIn", "Walk-in Patient"};
    ui::CheckBox chkPatientType{programmes, "chkPatientType", "Cash Patient"};
    ui::CheckBox chkforDeposit{programmes, "chkforDeposit", "For Deposit"};
    ui::CheckBox chkChemo{programmes, "chkChemo", "Chemo Patient"};
    ui::CheckBox chkRTherapy{programmes, "chkRTherapy", "RadioTherapy Patient"};
    ui::CheckBox chkHemo{programmes, "chkHemo", "Hemo Patient"};
    ui::DatePicker dtpExpiration{programmes, "dtpExpiration", "Expiration Period", ui::DatePicker::Format::Date};

    ui::Frame seniorCitizen{page, "fraSeniorCitizen", "Senior Citizen"};
    ui::CheckBox chkSeniorCitizen{seniorCitizen, "chkSeniorCitizen", "Senior Citizen    No:"};
    ui::TextBox txtSeniorCitizenID{seniorCitizen, "txtSeniorCitizenID", "", widths::text};
    ui::Frame fraSenior{seniorCitizen, "fraSenior", ""};
    ui::CheckBox chkSenior{fraSenior, "chkSenior", "&Senior Citizen Discounted"};
    ui::TextBox txtSeniorID{fraSenior, "txtSeniorID"};

    ui::Frame notify{page, "fraNotify", "Whom To &Notify In Case Of Emergency"};
    ui::ControlArray<ui::TextBox> txtNotify{"txtNotify", 4};
    ui::TextBox& notifyName = txtNotify.add(notify, 0, "Name", 50);
    ui::TextBox& notifyAddress = txtNotify.add(notify, 1, "Address", 50);
    ui::TextBox& notifyTelephone = txtNotify.add(notify, 2, "Tel. #", 15);
    ui::TextBox& notifyRelation = txtNotify.add(notify, 3, "Rel.to Px", 30);

    ui::TextBox txtRemarks{page, "txtRemarks", "Remar&ks", 60};
};

} // namespace opd::registration
