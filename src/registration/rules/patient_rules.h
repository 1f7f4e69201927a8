#pragma once

#include "registration/fields/fields.h"
#include "session/session.h"
#include "ui/window.h"

namespace opd::registration {

/// The rules of birth date, age and civil status.
class PatientRules {
  public:
    PatientRules(Session& session, ui::Window& window, HeaderFields& header, ui::ComboBox& civilStatus);
    PatientRules(const PatientRules&) = delete;
    PatientRules& operator=(const PatientRules&) = delete;

    /// Fills the birth date in, with age and civil status as they follow from it. Asks nobody; what the field would
    /// refuse is left out.
    void takeOver(const std::string& birthDate);

  private:
    bool acceptBirthDate();
    bool acceptAge(ui::Control& field);
    bool acceptCivilStatus();
    void followAge(int years);
    const char* faultOfCivilStatus() const;
    int age() const;
    void rememberDuplicate();
    bool refuse(ui::Control& field, const ui::Message& reason);

    Session& m_session;
    HeaderFields& m_header;
    ui::ComboBox& m_civilStatus;
};

} // namespace opd::registration
