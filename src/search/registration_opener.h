#pragma once

#include <string>

namespace opd::search {

/// What the search window asks of the registration form, in the order in which it asks. Between a change of the three
/// properties and the show, the form is loaded but not visible.
class RegistrationOpener {
  public:
    virtual ~RegistrationOpener() = default;

    virtual void setFormType(const std::string& type) = 0;          ///< "New", "Edit" or "NEW"
    virtual void setHospNum(const std::string& number) = 0;         ///< a hospital number, or "NEW"
    virtual void setAdmissionNumber(const std::string& number) = 0; ///< an OPD number, or "(TO BE GENERATED)"
    virtual void setLastName(const std::string& name) = 0;          ///< pre-fills the last name of a new patient

    /// Loads the form afresh and puts it in its full layout. Throws ado::Error when the database fails.
    virtual void SetRegistrationMode() = 0;

    /// In "New" mode: true when the patient may be registered today; otherwise the clerk was told why not.
    virtual bool SearchPatient() = 0;

    /// Says something in the status line of the loaded form.
    virtual void setStatus(const std::string& status) = 0;

    virtual void showModal() = 0; ///< returns when the form is closed
    virtual void show() = 0;      ///< returns at once

    /// Throws a loaded form away that will not be shown.
    virtual void discard() = 0;
};

} // namespace opd::search
