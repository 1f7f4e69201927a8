#pragma once

#include "registration/fields/column_widths.h"
#include "ui/controls.h"

namespace opd::registration {

/// What stands above the tabs: the visit's numbers and date, and who the patient is.
struct HeaderFields {
    explicit HeaderFields(ui::Container& form) : window(form) {
        for (ui::TextBox* decided : {&txtOPDNum, &txtHospNum, &txtAge}) // by the system
            decided->showOnly();
        male.spokenName = "Male";
        female.spokenName = "Female";
        txtBirthDate.offersCalendar = true;
        txtBirthDate.hint = "Month, day and year, or F4 for the calendar.";
    }

    ui::Container& window;
    ui::Frame header{window, "fraHeader", ""};
    ui::TextBox txtOPDNum{header, "txtOPDNum", "OPD No."};
    ui::TextBox txtHospNum{header, "txtHospNum", "Hosp. No."};
    ui::DatePicker dtpAdmDate{header, "dtpAdmDate", "Cons. Date", ui::DatePicker::Format::Date};
    ui::DatePicker txtAdmTime{header, "txtAdmTime", "Time", ui::DatePicker::Format::Time};
    ui::Label lblAdmissionStatus{header, "lblAdmissionStatus", "( Revoked )"};
    ui::TextBox txtLastName{header, "txtLastName", "&Last Name", 30};
    ui::TextBox txtFirstName{header, "txtFirstName", "First Name", 30};
    ui::TextBox txtMiddleName{header, "txtMiddleName", "Middle Name", 30};
    ui::TextBox txtTitle{header, "txtTitle", "Title", widths::text};
    ui::Frame sex{header, "fraSex", "Se&x"};
    ui::ControlArray<ui::OptionButton> optSex{"optSex", 2};
    ui::OptionButton& male = optSex.add(sex, 0, "M");
    ui::OptionButton& female = optSex.add(sex, 1, "F");
    ui::MaskedBox txtBirthDate{header, "txtBirthDate", "Birthdate"};
    ui::Label lblAgeInMonths{header, "lblAgeInMonths", ""}; ///< an infant's, beside the years
    ui::TextBox txtAge{header, "txtAge", "Age", 3};
    ui::Frame fraMasterFileRegistrationOnly{header, "fraMasterFileRegistrationOnly", "Master File Registration Only"};
};

/// The buttons below the tabs, reached after the last field.
struct FormButtons {
    explicit FormButtons(ui::Container& form) : window(form) {}

    ui::Container& window;
    ui::Button cmdSave{window, "cmdSave", "&Register"};
    ui::Button cmdPrint{window, "cmdPrint", "Save/&Print"};
    ui::Button cmdUpdate{window, "cmdUpdate", "Update Only"};
    ui::Button cmdEndConsultation{window, "cmdEndConsultation", "&End Consultation"};
    ui::Button cmdRevoke{window, "cmdRevoke", "&Revoke"};
    ui::Button cmdUnRevoke{window, "cmdUnRevoke", "&Unrevoke"};
    ui::Button cmdCancel{window, "cmdCancel", "&Cancel"};
};

} // namespace opd::registration
