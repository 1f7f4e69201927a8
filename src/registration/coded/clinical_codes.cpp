#include "registration/coded/clinical_codes.h"

#include "base/text/text.h"
#include "data/procedures/eligibility.h"
#include "search/pick_list.h"

#include <array>

namespace opd::registration {

namespace {

using Allergies = std::array<ui::CodedField*, 5>;

Allergies allergiesOf(HistoryTab& tab) {
    return {&tab.allergy1, &tab.allergy2, &tab.allergy3, &tab.allergy4, &tab.allergy5};
}

std::string patientSex(const Fields& fields) {
    if (fields.header.male.selected())
        return "M";
    return fields.header.female.selected() ? "F" : "";
}

/// The list closes up behind an allergy that was taken away.
void removeAllergy(const Allergies& allergies, std::size_t slot) {
    for (; slot + 1 < allergies.size(); ++slot)
        allergies[slot]->show(allergies[slot + 1]->code.text(), allergies[slot + 1]->name.text());
    allergies.back()->show("", "");
}

} // namespace

ClinicalCodes::ClinicalCodes(Session& session, Fields& fields, CodeEntry& entry, const search::CodeListing& listing,
                             search::clsSearch& codes)
    : m_session(session), m_fields(fields), m_listing(listing), m_codes(codes) {
    ConsultationTab& tab = fields.consultation;
    // A doctor goes with the service of the same place; doctors 3 to 5 begin with the first one again.
    const std::pair<ui::CodedField*, ui::CodedField*> doctors[] = {{&tab.doctor1, &tab.service1},
                                                                   {&tab.doctor2, &tab.service2},
                                                                   {&tab.doctor3, &tab.service1},
                                                                   {&tab.doctor4, &tab.service2},
                                                                   {&tab.doctor5, &tab.service3}};
    for (const auto& [doctor, service] : doctors)
        bindDoctor(entry, *doctor, *service);
    bindService(entry, tab.service1, &tab.doctor1);
    bindService(entry, tab.service2, &tab.doctor2);
    bindService(entry, tab.service3, nullptr);
    for (std::size_t slot = 0; slot < allergiesOf(fields.history).size(); ++slot)
        entry.bind(*allergiesOf(fields.history)[slot], "This allergy is unknown or stands here already.",
                   [this, slot](const LookupRequest& request) { return acceptAllergy(slot, request); });
}

void ClinicalCodes::bindDoctor(CodeEntry& entry, ui::CodedField& doctor, const ui::CodedField& service) {
    entry.bind(doctor, "No doctor has this code.", [this, &doctor, &service](const LookupRequest& request) {
        return request.isNone() || findDoctor(request, doctor, service);
    });
}

bool ClinicalCodes::findDoctor(const LookupRequest& request, ui::CodedField& doctor, const ui::CodedField& service) {
    if (m_session.globals.IsAllowOPDSearchDocBySched) {
        if (!m_codes.SearchDoctor(text::trimmed(request.text), text::trimmed(service.code.text()), request.present))
            return false;
        doctor.show(m_codes.Code(), m_codes.Description());
        return true;
    }
    const std::optional<search::Doctor> found = m_listing.doctor(request.wish());
    if (found)
        doctor.show(found->code, text::trimmed(found->lastName) + ", " + found->firstName);
    return found.has_value();
}

/// A service may have a doctor of its own, who is then assigned.
void ClinicalCodes::bindService(CodeEntry& entry, ui::CodedField& service, ui::CodedField* doctor) {
    entry.bind(service, [this, &service, doctor](const LookupRequest& request) {
        const ServiceOutcome outcome = findService(request, service);
        if (outcome == ServiceOutcome::NotFound && request.forced) { // a list that was closed without a choice
            service.code.window().setFocus(service.code);
            return true;
        }
        if (outcome == ServiceOutcome::NotFound) {
            // An unknown code may be left, but no other service's name stands beside it.
            service.mark("No service has this code.");
            service.name.setText("");
        }
        if (outcome == ServiceOutcome::NotEligible)
            service.refuse("The patient may not get this service.");
        if (outcome != ServiceOutcome::Accepted)
            return outcome == ServiceOutcome::NotEligible;
        service.accept();
        if (!request.isNone())
            assignDoctor(request, service, doctor);
        return false;
    });
}

ClinicalCodes::ServiceOutcome ClinicalCodes::findService(const LookupRequest& request, ui::CodedField& service) {
    if (request.isNone()) {
        service.name.setText("");
        return ServiceOutcome::Accepted;
    }
    const std::optional<search::NamedCode> found = m_listing.service(request.wish());
    if (!found)
        return ServiceOutcome::NotFound;
    if (!data::CheckServiceEligibility(m_session.desktop, found->code, patientSex(m_fields),
                                       m_fields.header.txtAge.text()))
        return ServiceOutcome::NotEligible;
    service.show(found->code, found->name);
    return ServiceOutcome::Accepted;
}

void ClinicalCodes::assignDoctor(const LookupRequest& request, const ui::CodedField& service, ui::CodedField* doctor) {
    if (m_session.globals.IsAllowOPDSearchDocBySched) {
        if (doctor != nullptr)
            assignDoctorOnDuty(request, service, *doctor);
    } else if (&service == &m_fields.consultation.service1) {
        assignLeastConsulted();
    }
}

/// The doctor who is on duty for a service, when there is just one.
void ClinicalCodes::assignDoctorOnDuty(const LookupRequest& request, const ui::CodedField& service,
                                       ui::CodedField& doctor) {
    const std::string criteria = request.forced ? std::string{} : text::trimmed(doctor.code.text());
    if (m_codes.SearchAutoDoctor(criteria, text::trimmed(service.code.text())))
        doctor.show(m_codes.Code(), m_codes.Description());
}

/// The least consulted doctor of the first service, when no doctor was chosen.
void ClinicalCodes::assignLeastConsulted() {
    ConsultationTab& tab = m_fields.consultation;
    if (!text::isBlank(tab.doctor1.code.text()))
        return;
    search::frmPickList doctors(m_session);
    doctors.InitializeForm("Doctor List sorted from least to most consulted", tab.service1.code.text(),
                           tab.service1.name.text(), false);
    doctors.LoadForm();
    if (doctors.UserSelected() && !doctors.ReturnID().empty())
        tab.doctor1.show(doctors.ReturnID(), doctors.ReturnDescription());
}

bool ClinicalCodes::acceptAllergy(std::size_t slot, const LookupRequest& request) {
    const Allergies allergies = allergiesOf(m_fields.history);
    if (request.isNone()) {
        removeAllergy(allergies, slot);
        return true;
    }
    const std::optional<search::NamedCode> found = m_listing.allergy(request.wish());
    if (!found)
        return false;
    for (std::size_t other = 0; other < allergies.size(); ++other)
        if (other != slot && allergies[other]->code.text() == found->code) {
            m_session.desktop.ask(
                {.text = "Selected allergy is already assigned to the patient...", .icon = ui::Icon::Critical});
            return false;
        }
    allergies[slot]->show(found->code, found->name);
    return true;
}

} // namespace opd::registration
