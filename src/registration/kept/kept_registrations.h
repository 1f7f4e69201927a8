#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"
#include "ui/window.h"

#include <string>

namespace opd::registration {

/// What was typed into a registration for which no number could be drawn. It is kept in memory alone, one for each
/// patient and one for a new patient, in the session of the thread.
class KeptRegistrations {
  public:
    /// `patient` is the hospital number that the form was opened for, or "NEW".
    KeptRegistrations(Session& session, ui::Window& window, Fields& fields, Record& record, std::string patient)
        : m_session(session), m_window(window), m_fields(fields), m_record(record), m_patient(std::move(patient)) {}

    /// Keeps what the form holds for its next opening.
    void keep();

    /// Offers what is kept for the patient of a form that was opened for a new visit; where the clerk agrees the form
    /// holds it from now on, without any rule being asked, and it stays kept. A clerk who declines gives it up.
    void offer();

    /// The form is saved or given up: what it took up is not kept any more.
    void forgetTakenUp();

  private:
    void takeUp(const KeptRegistration& kept);
    void forget();

    Session& m_session;
    ui::Window& m_window;
    Fields& m_fields;
    Record& m_record;
    const std::string m_patient;
    bool m_isTakenUp = false; ///< the form holds what an earlier one could not save
};

} // namespace opd::registration
