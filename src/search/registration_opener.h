#pragma once

#include <functional>
#include <string>

namespace opd::search {

/// What the search window wants the registration form to be.
struct Opening {
    std::string FormType;        ///< "New", "Edit" or "NEW"
    std::string HospNum;         ///< a hospital number, or "NEW"
    std::string AdmissionNumber; ///< an OPD number, or "(TO BE GENERATED)"
    std::string lastName = {};   ///< pre-fills the last name of a new patient when not empty
    std::string sex = {};        ///< "M" or "F" chooses that of a new patient
    std::string birthDate = {};  ///< "MM/dd/yyyy" pre-fills that of a new patient, when it is one
    std::string status = {};     ///< what the form's status line says when not empty
    bool modal = true;           ///< false: the opening returns as soon as the form is shown

    /// Is called when the form is loaded and may be shown, right before it is.
    std::function<void()> beforeShowing = {};
};

/// What came of an opening.
enum class Opened {
    Shown,
    Declined, ///< the clerk did not want to go on
    Refused   ///< the patient may not be registered today, which the clerk was told
};

/// Opens the registration form. The search window knows no more of it.
class RegistrationOpener {
  public:
    virtual ~RegistrationOpener() = default;

    /// Loads the form afresh in its full layout, asks in "New" mode whether the patient may be registered, and shows
    /// the form; returns when it is closed, or, not `modal`, at once. Throws ado::Error when the database fails; the
    /// form is thrown away then.
    virtual Opened open(const Opening& opening) = 0;
};

} // namespace opd::search
