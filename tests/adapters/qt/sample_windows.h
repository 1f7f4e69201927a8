#pragma once

#include "registration/fields/fields.h"
#include "search/master_search_fields.h"

namespace opd::qt::samples {

/// The search window without its behaviour.
struct SearchWindow : ui::Window, search::MasterSearchFields {
    SearchWindow()
        : Window("frmMasterSearch", "Master Patient Search"), MasterSearchFields(static_cast<Window&>(*this)) {}
};

/// The registration form without its behaviour.
struct RegistrationWindow : ui::Window, registration::Fields {
    RegistrationWindow() : Window("frmRegistration", "Registration"), Fields(static_cast<Window&>(*this)) {}
};

} // namespace opd::qt::samples
