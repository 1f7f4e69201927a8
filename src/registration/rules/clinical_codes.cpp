#include "registration/rules/clinical_codes.h"

#include "base/text/text.h"
#include "data/procedures/eligibility.h"
#include "registration/rules/complaint_codes.h"
#include "registration/rules/lookup_request.h"
#include "search/pick_list.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

constexpr int doctorListing = 1;
constexpr int allergyListing = 5;
constexpr int serviceListing = 9;
constexpr int allergySlots = 5;
constexpr int allergyNameOffset = 5;

using TextBoxes = ui::ControlArray<ui::TextBox>;

bool searchListing(const FormContext& form, const std::string& text, int listing) {
    return form.session.globals.gCodeSearch.flag("SearchListing", {text, std::int32_t{listing}});
}

std::string patientSex(const Fields& fields) {
    if (fields.header.male.selected())
        return "M";
    return fields.header.female.selected() ? "F" : "";
}

// Doctors

bool findDoctor(FormContext& form, const LookupRequest& request, int index, ui::TextBox& code, ui::TextBox& name) {
    if (form.session.globals.IsAllowOPDSearchDocBySched) {
        const std::string service = text::trimmed(form.fields.consultation.txtService(index).text());
        if (!form.codes.SearchDoctor(text::trimmed(request.text), service))
            return false;
        code.setText(form.codes.Code());
        name.setText(form.codes.Description());
        return true;
    }
    if (!searchListing(form, request.text, doctorListing))
        return false;
    const com::Object doctor = form.session.globals.gCodeSearch.object("DoctorRecord");
    code.setText(doctor.text("ResultCode"));
    name.setText(text::trimmed(doctor.text("LastName")) + ", " + doctor.text("FirstName"));
    return true;
}

/// A doctor goes with the service of the same index.
void bindDoctors(FormContext& form, TextBoxes& doctors, std::initializer_list<int> indexes) {
    for (const int index : indexes) {
        ui::TextBox& code = doctors(index);
        ui::TextBox& name = doctors(index + 1);
        code.onValidate = [&form, index, &code, &name](bool& refuse) {
            const LookupRequest request = takeRequest(form.session, code);
            refuse = refusedAfter(form, request, request.isNone() || findDoctor(form, request, index, code, name), code,
                                  "No doctor has this code.");
        };
    }
}

// Services

enum class ServiceOutcome { Accepted, NotFound, NotEligible };

ServiceOutcome findService(FormContext& form, const LookupRequest& request, ui::TextBox& code, ui::TextBox& name) {
    if (request.isNone()) {
        name.setText("");
        return ServiceOutcome::Accepted;
    }
    if (!searchListing(form, request.text, serviceListing))
        return ServiceOutcome::NotFound;
    const com::Object service = form.session.globals.gCodeSearch.object("ServiceRecord");
    if (!data::CheckServiceEligibility(form.session.desktop, service.text("ResultCode"), patientSex(form.fields),
                                       form.fields.header.txtAge.text()))
        return ServiceOutcome::NotEligible;
    code.setText(service.text("ResultCode"));
    name.setText(service.text("Service"));
    return ServiceOutcome::Accepted;
}

/// The doctor who is on duty for a service, when there is just one. Service 3 has no doctor of its own.
void assignDoctorOnDuty(FormContext& form, const LookupRequest& request, int index) {
    ConsultationTab& consultation = form.fields.consultation;
    if (index > 2)
        return;
    ui::TextBox& doctor = consultation.txtDoctor(index);
    const std::string criteria = request.forced ? std::string{} : text::trimmed(doctor.text());
    if (!form.codes.SearchAutoDoctor(criteria, text::trimmed(consultation.txtService(index).text())))
        return;
    doctor.setText(form.codes.Code());
    consultation.txtDoctor(index + 1).setText(form.codes.Description());
}

/// The least consulted doctor of the first service, when no doctor was chosen.
void assignLeastConsulted(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    if (!text::isBlank(consultation.doctorCode1.text()))
        return;
    search::frmPickList doctors(form.session);
    doctors.InitializeForm("Doctor List sorted from least to most consulted", consultation.serviceCode1.text(),
                           consultation.serviceName1.text(), false);
    doctors.LoadForm();
    if (doctors.UserSelected() && !doctors.ReturnID().empty()) {
        consultation.doctorCode1.setText(doctors.ReturnID());
        consultation.doctorName1.setText(doctors.ReturnDescription());
    }
}

void assignDoctor(FormContext& form, const LookupRequest& request, int index) {
    if (form.session.globals.IsAllowOPDSearchDocBySched)
        assignDoctorOnDuty(form, request, index);
    else if (index == 0)
        assignLeastConsulted(form);
}

/// An unknown code may be left, but it is marked, and no other service's name stands beside it.
void markUnknownService(ui::TextBox& code, ui::TextBox& name) {
    code.setRefusal("No service has this code.");
    name.setText("");
}

/// Returns whether the focus must stay.
bool refusesService(FormContext& form, int index) {
    TextBoxes& services = form.fields.consultation.txtService;
    ui::TextBox& code = services(index);
    const LookupRequest request = takeRequest(form.session, code);
    const ServiceOutcome outcome = findService(form, request, code, services(index + 1));
    if (outcome == ServiceOutcome::NotFound) {
        if (!request.forced)
            markUnknownService(code, services(index + 1));
        return false;
    }
    if (refusedUnless(form, outcome == ServiceOutcome::Accepted, code, "The patient may not get this service."))
        return true;
    if (!request.isNone())
        assignDoctor(form, request, index);
    return false;
}

void bindServices(FormContext& form) {
    for (const int index : {0, 2, 4})
        form.fields.consultation.txtService(index).onValidate = [&form, index](bool& refuse) {
            refuse = refusesService(form, index);
        };
}

// Allergies

void removeAllergy(TextBoxes& allergies, int slot) {
    for (int n = slot; n < allergySlots; ++n)
        for (const int offset : {0, allergyNameOffset})
            allergies(n + offset).setText(n + 1 < allergySlots ? allergies(n + 1 + offset).text() : std::string{});
}

bool acceptAllergy(FormContext& form, int slot, const LookupRequest& request) {
    TextBoxes& allergies = form.fields.history.txtAllergy;
    if (request.isNone()) {
        removeAllergy(allergies, slot);
        return true;
    }
    if (!searchListing(form, request.text, allergyListing))
        return false;
    const com::Object allergy = form.session.globals.gCodeSearch.object("AllergyRecord");
    const std::string code = allergy.text("ResultCode");
    for (int other = 0; other < allergySlots; ++other)
        if (other != slot && allergies(other).text() == code) {
            form.session.desktop.ask(
                {.text = "Selected allergy is already assigned to the patient...", .icon = ui::Icon::Critical});
            return false;
        }
    allergies(slot).setText(code);
    allergies(slot + allergyNameOffset).setText(allergy.text("Allergy"));
    return true;
}

void bindAllergies(FormContext& form) {
    for (int slot = 0; slot < allergySlots; ++slot) {
        ui::TextBox& code = form.fields.history.txtAllergy(slot);
        code.onValidate = [&form, slot, &code](bool& refuse) {
            const LookupRequest request = takeRequest(form.session, code);
            refuse = refusedAfter(form, request, acceptAllergy(form, slot, request), code,
                                  "This allergy is unknown or stands here already.");
        };
    }
}

} // namespace

void bindClinicalCodes(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    bindDoctors(form, consultation.txtDoctor, {0, 2});
    bindDoctors(form, consultation.txtAddDoctor, {0, 2, 4});
    bindServices(form);
    bindAllergies(form);
    bindComplaintCodes(form);
}

} // namespace opd::registration
