#pragma once

#include "registration/fields/fields.h"
#include "ui/desktop.h"

namespace opd::registration {

/// Who pays: insurance, plan, patient type, pay code, senior citizen, purposes and programmes.
class PayerRules {
  public:
    PayerRules(ui::Desktop& desktop, Fields& fields);
    PayerRules(const PayerRules&) = delete;
    PayerRules& operator=(const PayerRules&) = delete;

  private:
    void bindInsurance();
    void bindPatientType();
    void bindPayCode();
    void bindSenior(ui::CheckBox& box, ui::TextBox& number, int leastAge);
    void bindPurposes();
    void bindProgrammes();

    ui::Desktop& m_desktop;
    Fields& m_fields;
};

/// After loading: the payer's fields stand as if what they show had been clicked, with every loaded value untouched.
/// `locksPatientType` says whether the account decides about the patient's type.
void standByPayer(Fields& fields, bool locksPatientType);

} // namespace opd::registration
