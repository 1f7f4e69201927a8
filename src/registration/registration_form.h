#pragma once

#include "registration/fields/fields.h"
#include "registration/form_rules.h"
#include "registration/kept/kept_registrations.h"
#include "registration/meanwhile/changed_meanwhile.h"
#include "registration/photo/photo.h"
#include "registration/record/record.h"
#include "registration/revoke/revoke.h"
#include "registration/rules/guidance.h"
#include "registration/subrecords/dependents_editor.h"
#include "search/registration_opener.h"
#include "session/session.h"
#include "ui/window.h"

#include <optional>

namespace opd::registration {

using search::Opening;

/// One opening of "Registration": a visit together with the editable part of the patient's master record, from loading
/// to closing.
class RegistrationForm {
  public:
    RegistrationForm(Session& session, const Opening& opening);
    ~RegistrationForm();

    ui::Window& window() { return m_window; }
    Fields& fields() { return m_fields; }
    Record& record() { return m_record; }

    /// Loads the form by its type, hospital number and OPD number, and lays it out in full; offers what was typed into
    /// one for the same patient that could not be saved. Throws ado::Error.
    void SetRegistrationMode();

    /// The check before a save, see `ValidateData`.
    bool validate();

  private:
    void load();
    void bindButtons();
    void disableIdleButtons();
    void save(bool updateOnly);
    bool stores(bool updateOnly);
    bool mayOverwrite();
    bool mayOverwriteVisit(const RegistrationForm& storedNow);
    bool mayOverwritePatient(const RegistrationForm& storedNow);
    bool isGone(const Record& storedNow) const;
    bool isRevokedMeanwhile(const RegistrationForm& storedNow);
    Stands chooses(const FieldValues& loaded, const FieldValues& storedNow);
    void take(const RegistrationForm& storedNow);
    void takePatient(const RegistrationForm& storedNow, const RegistrationForm& asOpened);
    void showTaken(const std::string& status);
    void rememberLoaded();
    void takeOverSearch();
    FieldValues values(FieldValues::Meaning meaning) const;
    void close();
    void rememberStored();
    void saveAndPrint();
    void cancel();
    void endConsultation();

    Session& m_session;
    ui::Window m_window{"frmRegistration", "Registration"};
    Fields m_fields{m_window};
    Record m_record;
    FieldValues m_loaded;      ///< what an "Edit" was filled with
    bool m_wasRevoked = false; ///< likewise, whether its visit was revoked
    FormRules m_rules{m_session, m_window, m_fields, m_record};
    Revoking m_revoking{m_session, m_fields};
    PhotoCapture m_capture{m_session, m_fields.additional, m_record};
    DependentsEditor m_dependents{m_session.desktop, m_fields.employment};
    std::optional<Guidance> m_guidance; ///< made last: it adds to all other handlers
    KeptRegistrations m_kept;           ///< of whom the form was opened for; a saved new patient has a number by then
    const Opening m_opening;
};

} // namespace opd::registration
