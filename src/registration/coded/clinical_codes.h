#pragma once

#include "registration/coded/code_entry.h"
#include "registration/fields/fields.h"
#include "search/code_search.h"
#include "session/session.h"

namespace opd::registration {

/// The coded clinical fields: services, the doctors that go with them, and allergies.
class ClinicalCodes {
  public:
    ClinicalCodes(Session& session, Fields& fields, CodeEntry& entry, const search::CodeListing& listing,
                  search::clsSearch& codes);

  private:
    enum class ServiceOutcome { Accepted, NotFound, NotEligible };

    void bindDoctor(CodeEntry& entry, ui::CodedField& doctor, const ui::CodedField& service);
    void bindService(CodeEntry& entry, ui::CodedField& service, ui::CodedField* doctor);
    bool findDoctor(const LookupRequest& request, ui::CodedField& doctor, const ui::CodedField& service);
    ServiceOutcome findService(const LookupRequest& request, ui::CodedField& service);
    void assignDoctor(const LookupRequest& request, const ui::CodedField& service, ui::CodedField* doctor);
    void assignDoctorOnDuty(const LookupRequest& request, const ui::CodedField& service, ui::CodedField& doctor);
    void assignLeastConsulted();
    bool acceptAllergy(std::size_t slot, const LookupRequest& request);

    Session& m_session;
    Fields& m_fields;
    const search::CodeListing& m_listing;
    search::clsSearch& m_codes;
};

} // namespace opd::registration
