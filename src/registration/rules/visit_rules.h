#pragma once

#include "registration/fields/fields.h"
#include "ui/desktop.h"

namespace opd::registration {

/// The rules of the admission date, the last menstruation period, the vital signs and the authorized amount.
class VisitRules {
  public:
    /// `serverDate` is the session's and changes while the form is open.
    VisitRules(ui::Desktop& desktop, const DateTime& serverDate, Fields& fields);
    VisitRules(const VisitRules&) = delete;
    VisitRules& operator=(const VisitRules&) = delete;

  private:
    void bindDates();
    const char* faultOfAdmissionDate() const;
    void bindBloodPressure();
    void enteredSystolic();
    void enteredDiastolic();
    bool confirmsPressure(ui::TextBox& box);
    void checkOrder();
    void bindTemperature();
    void bindPulse();
    void changedPulse();
    void bindAuthorizedAmount();
    void tell(const char* text);
    bool confirmsEntry();

    ui::Desktop& m_desktop;
    const DateTime& m_serverDate;
    Fields& m_fields;
    bool m_clearsPulse = false; ///< clearing what was refused is a change itself, about which nothing more is said
};

} // namespace opd::registration
