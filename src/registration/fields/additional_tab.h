#pragma once

#include "registration/fields/column_widths.h"
#include "ui/coded_field.h"

namespace opd::registration {

/// Tab "Additional Information": photograph, spouse, and the markers that the hospital's settings switch on.
struct AdditionalTab {
    explicit AdditionalTab(ui::Tabs& tabs, ui::ControlArray<ui::TextBox>& personal)
        : page(tabs, "pageAdditional", "Additional Information"), txtPersonal(personal) {
        picPatient.spokenName = "Photograph";
        txtPictureLocation.showOnly();
        txtPictureFileName.showOnly();
        spouseEmployerName.tip = "Name of the spouse's employer";
        spouseEmployerAddress.spokenName = "Spouse's employer: Address";
        spouseEmployerTelephone.spokenName = "Spouse's employer: Tel. #";
        txtLOAAmount.tip = "Amount of the letter of authorization";
    }

    ui::Page page;
    ui::ControlArray<ui::TextBox>& txtPersonal;

    ui::Frame picture{page, "fraPicture", "Picture"};
    ui::Picture picPatient{picture, "picPatient"};
    ui::Button cmdCapture{picture, "cmdCapture", "Capture"};
    ui::TextBox txtPictureLocation{picture, "txtPictureLocation", "Location"};
    ui::TextBox txtPictureFileName{picture, "txtPictureFileName", "File Name"};

    ui::Frame spouse{page, "fraSpouse", "Spouse"};
    ui::TextBox& spouseName = txtPersonal.add(spouse, 8, "Name", 30);
    ui::ControlArray<ui::TextBox> txtSpouse{"txtSpouse", 7};
    ui::TextBox& spouseAddress = txtSpouse.add(spouse, 4, "Address", 50);
    ui::TextBox& spouseTelephone = txtSpouse.add(spouse, 3, "Tel. #", 50);
    ui::TextBox& spouseEmployerName = txtSpouse.add(spouse, 1, "Emp. Name", 50);
    ui::TextBox& spouseEmployerAddress = txtSpouse.add(spouse, 2, "Address", 50);
    ui::TextBox& spouseEmployerTelephone = txtSpouse.add(spouse, 5, "Tel. #", 15);
    ui::TextBox& spouseEmployerFax = txtSpouse.add(spouse, 0, "Fax", 15);
    ui::TextBox& spouseEmployerEmail = txtSpouse.add(spouse, 6, "E-mail", widths::text);

    ui::Frame frmPatientType{page, "frmPatientType", "Patient Type "};
    ui::ControlArray<ui::OptionButton> OptPatient{"OptPatient", 2};
    ui::OptionButton& regularPatient = OptPatient.add(frmPatientType, 0, "Regular Patient");
    ui::OptionButton& corvanePatient = OptPatient.add(frmPatientType, 1, "Corvane Patient");

    ui::Frame fraMAB{page, "fraMAB", "Mab Patient"};
    ui::CheckBox chkMAB{fraMAB, "chkMAB", "MabPatient"};

    ui::Frame FraPatientClass{page, "FraPatientClass", "Patient Classification"};
    ui::TextBox txtPatientClassID{FraPatientClass, "txtPatientClassID", "", widths::code};
    ui::Button cmdPatientClass{FraPatientClass, "cmdPatientClass", "..."};
    ui::TextBox txtPatientClass{FraPatientClass, "txtPatientClass"};
    ui::CodedField patientClass{txtPatientClassID, cmdPatientClass, txtPatientClass};

    ui::ControlArray<ui::Frame> Frame5{"Frame5", 10};
    ui::Frame& letterOfAuthorization = Frame5.add(page, 9, "Insurance");
    ui::TextBox txtApprovalNo{letterOfAuthorization, "txtApprovalNo", "Approval No:", widths::text};
    ui::DatePicker DateLOAInformed{letterOfAuthorization, "DateLOAInformed",
                                   "Informed :", ui::DatePicker::Format::Date};
    ui::DatePicker TimeLOAInformed{letterOfAuthorization, "TimeLOAInformed", "", ui::DatePicker::Format::Time};
    ui::TextBox txtLOAReceiver{letterOfAuthorization, "txtLOAReceiver", "Receiver :", widths::text};
    ui::DatePicker DateLOAReceived{letterOfAuthorization, "DateLOAReceived",
                                   "Received :", ui::DatePicker::Format::Date};
    ui::DatePicker TimeLOAReceived{letterOfAuthorization, "TimeLOAReceived", "", ui::DatePicker::Format::Time};
    ui::TextBox txtLOAAmount{letterOfAuthorization, "txtLOAAmount", "LOA Amount :"};
    ui::ComboBox cmbLOAStatus{letterOfAuthorization, "cmbLOAStatus", "Status :", {"Covered", "Uncovered"}};
    ui::TextBox txtLOARemarks{letterOfAuthorization, "txtLOARemarks", "Remarks :"};
};

} // namespace opd::registration
