#pragma once

#include "data/entry_settings.h"
#include "registration/accounts/account_rules.h"
#include "registration/accounts/payer_rules.h"
#include "registration/coded/clinical_codes.h"
#include "registration/coded/code_lookups.h"
#include "registration/coded/complaint_codes.h"
#include "registration/record/record.h"
#include "registration/rules/key_rules.h"
#include "registration/rules/patient_rules.h"
#include "registration/rules/visit_rules.h"

namespace opd::registration {

/// The rules of one form, each over what it touches, for as long as the form lives.
class FormRules {
  public:
    FormRules(Session& session, ui::Window& window, Fields& fields, Record& record)
        : m_codes(session), m_listing(session.globals.gCodeSearch), m_entry(session.globals.gForceSearch),
          m_keys(window, fields, data::entersQuickly(session.settings)),
          m_patient(session, window, fields.header, fields.personal.cboCivilStatus),
          m_lookups(fields, m_entry, m_listing, m_codes), m_clinical(session, fields, m_entry, m_listing, m_codes),
          m_complaints(session, fields, m_listing), m_payer(session.desktop, fields),
          m_account(session, fields.personal, fields.additional, record.CompanyClass, m_entry, m_listing),
          m_visit(session.desktop, session.globals.gServerDate, fields) {}

    PatientRules& patient() { return m_patient; }

  private:
    search::clsSearch m_codes;
    search::CodeListing m_listing;
    CodeEntry m_entry;
    KeyRules m_keys;
    PatientRules m_patient;
    CodeLookups m_lookups;
    ClinicalCodes m_clinical;
    ComplaintCodes m_complaints;
    PayerRules m_payer;
    AccountRules m_account;
    VisitRules m_visit;
};

} // namespace opd::registration
