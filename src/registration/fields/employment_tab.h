#pragma once

#include "registration/fields/column_widths.h"
#include "ui/controls.h"
#include "ui/grid.h"

namespace opd::registration {

/// Tab "Employment & Dependent".
struct EmploymentTab {
    explicit EmploymentTab(ui::Tabs& tabs) : page(tabs, "pageEmployment", "Employment && Dependent") {
        mshDependents.picksCells = true;
        mshDependents.show({{"Name of Children", 5000}, {"Birth Date", 1440}}, {ui::Grid::Row(2)});
        txtEntry.floatsOver = &mshDependents;
        mshDependents.hint = "F2 edits the cell, Delete takes the child away.";
        txtEntry.hint = "Enter takes the entry over, Esc gives it up.";
    }

    ui::Page page;

    ui::Frame philHealth{page, "fraPHIC", "With Phil Health?"};
    ui::ControlArray<ui::OptionButton> optPHIC{"optPHIC", 2};
    ui::OptionButton& philHealthYes = optPHIC.add(philHealth, 0, "Yes");
    ui::OptionButton& philHealthNo = optPHIC.add(philHealth, 1, "No");

    ui::Frame employed{page, "fraEmployed", "Employed?"};
    ui::ControlArray<ui::OptionButton> optEmployed{"optEmployed", 2};
    ui::OptionButton& employedYes = optEmployed.add(employed, 0, "Yes");
    ui::OptionButton& employedNo = optEmployed.add(employed, 1, "No");

    ui::Frame type{page, "fraType", "Type"};
    ui::ControlArray<ui::OptionButton> optType{"optType", 3};
    ui::OptionButton& selfEmployed = optType.add(type, 0, "Self- Employed");
    ui::OptionButton& privateSector = optType.add(type, 1, "Private");
    ui::OptionButton& government = optType.add(type, 2, "Government");

    ui::Frame location{page, "fraLocation", "Location"};
    ui::ControlArray<ui::OptionButton> optLocation{"optLocation", 2};
    ui::OptionButton& local = optLocation.add(location, 0, "Local");
    ui::OptionButton& abroad = optLocation.add(location, 1, "Abroad");

    ui::Frame employer{page, "fraEmployer", "Employer"};
    ui::ControlArray<ui::TextBox> txtEmployer{"txtEmployer", 5};
    ui::TextBox& employerName = txtEmployer.add(employer, 0, "Name", 50);
    ui::TextBox& employerAddress = txtEmployer.add(employer, 1, "Address", 50);
    ui::TextBox& employerTelephone = txtEmployer.add(employer, 2, "Tel. #", 15);
    ui::TextBox& employerFax = txtEmployer.add(employer, 3, "Fax. #", 15);
    ui::TextBox& position = txtEmployer.add(employer, 4, "Position", 50);
    ui::TextBox txtEmployerEmail{employer, "txtEmployerEmail", "E-mail", widths::text};

    ui::Frame dependents{page, "fraDependents", "Dependent/s"};
    ui::Grid mshDependents{dependents, "mshDependents"}; ///< a dependent a row: name, birth date
    ui::MaskedBox txtEntry{dependents, "txtEntry"};      ///< edits the current cell of the grid
};

} // namespace opd::registration
