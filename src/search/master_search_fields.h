#pragma once

#include "search/lookup_fields.h"
#include "search/statements.h"
#include "ui/controls.h"
#include "ui/grid.h"

#include <array>

namespace opd::search {

/// Every control of the search window, a line each, in the order in which a clerk meets them.
struct MasterSearchFields {
    static constexpr int longestNumber = 30;

    explicit MasterSearchFields(ui::Container& form) : window(form) {
        gridPatientList.spokenName = "Patients found";
        cboBirthDay.spokenName = "Day";
        txtBirthDate.offersCalendar = true;
        cmdLabel.hint = "F7 shows the label of the patient who was registered last, Shift+F7 prints it at once.";
        cmdCard.hint = "F8 shows the card of the patient who was registered last, Shift+F8 prints it at once.";
    }

    ui::Container& window;

    ui::Frame scan{window, "fraScan", "SCAN"};
    ui::TextBox txtHospNum{scan, "txtHospNum", "HOSPITAL CARD NO.", longestNumber};

    ui::Frame criteria{window, "fraCriteria", "Patient"};
    ui::ControlArray<ui::TextBox> txtName{"txtName", 1};
    ui::TextBox& lastName = txtName.add(criteria, 0, "&Last Name :", longestSearch);
    ui::Frame sex{criteria, "fraSex", "Sex"};
    ui::ControlArray<ui::OptionButton> Option1{"Option1", 2};
    ui::OptionButton& male = Option1.add(sex, 0, "&Male");
    ui::OptionButton& female = Option1.add(sex, 1, "&Female");
    ui::MaskedBox txtBirthDate{criteria, "txtBirthDate", "&Date of Birth :"};
    ui::Label lblBirthDateHint{criteria, "lblBirthDateHint", "MM/DD/YYYY"};
    ui::TextBox txtAge{criteria, "txtAge", "Age"};
    ui::TextBox txtBirthYear{criteria, "txtBirthYear", "Year"};
    ui::ComboBox cboBirthMonth{criteria, "cboBirthMonth", "Month"};
    ui::ComboBox cboBirthDay{criteria, "cboBirthDay"};

    ui::Frame otherNumbers{window, "fraOtherNumbers", "Search Other No. :"};
    ui::TextBox txtPHICNum{otherNumbers, "txtPHICNum", "PHIC No. :", longestNumber};
    ui::TextBox txtGSISNum{otherNumbers, "txtGSISNum", "GSIS No. :", longestNumber};
    ui::TextBox txtSSSNum{otherNumbers, "txtSSSNum", "SSS No. :", longestNumber};

    /// The numbers that other institutions gave a patient, a line each; the first one filled in is searched for.
    struct MemberNumberBox {
        MemberNumber kind;
        const char* name; ///< as the clerk calls it
        ui::TextBox* box;
    };
    const std::array<MemberNumberBox, 3> memberNumbers{{{MemberNumber::PhilHealth, "PHIC", &txtPHICNum},
                                                        {MemberNumber::Gsis, "GSIS", &txtGSISNum},
                                                        {MemberNumber::Sss, "SSS", &txtSSSNum}}};

    ui::ControlArray<ui::Button> Command1{"Command1", 4};
    ui::Button& search = Command1.add(window, 0, "&Search");
    ui::Button& newSearch = Command1.add(window, 1, "&New Search");

    ui::Grid gridPatientList{window, "gridPatientList"};

    ui::Label lblLastRegistered{window, "lblLastRegistered", ""};
    ui::Button cmdLabel{window, "cmdLabel", "La&bel"}; ///< of the patient whose visit was stored last
    ui::Button cmdCard{window, "cmdCard", "C&ard"};
    ui::Button cmdTodaysVisits{window, "cmdTodaysVisits", "Today's &Visits"};
    ui::Button& newPatient = Command1.add(window, 3, "New &Patient");
    ui::Button& close = Command1.add(window, 2, "&Close");

    ui::Frame guideline{window, "fraGuideline", "Guideline:"};
    ui::Label lblGuide{
        guideline, "lblGuide",
        "Computer records indicate that the following patient may have been confined in this hospital. Please verify "
        "this with the patient/guardian, be certain to check the name, date of birth and address. If the patient(s) "
        "displayed does not match the current admission, press ESC or Click on the 'Close' botton to continue. If the "
        "patient appears on the list,  highlight the name and press ENTER or double click..."};

    ui::Timer tmrBarCode{window, "tmrBarCode", 500};
};

} // namespace opd::search
