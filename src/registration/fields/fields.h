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
        tabOPD.spokenName = "Registration";
    }

    ui::ControlArray<ui::Button> cmdSearch{"cmdSearch", 18};
    ui::ControlArray<ui::TextBox> txtPersonal{"txtPersonal", 14};
    ui::ControlArray<ui::TextBox> txtChiefComplaint{"txtChiefComplaint", 2};

    HeaderFields header;
    ui::Tabs tabOPD;
    PersonalTab personal{tabOPD, cmdSearch, txtPersonal};
    AdditionalTab additional{tabOPD, txtPersonal};
    ConsultationTab consultation{tabOPD, cmdSearch, txtChiefComplaint};
    HistoryTab history{tabOPD, cmdSearch, txtChiefComplaint};
    EmploymentTab employment{tabOPD};
    FormButtons buttons;
};

} // namespace opd::registration
