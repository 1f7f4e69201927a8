#include "registration/record/sent_fields.h"

#include "base/text/text.h"

#include <algorithm>
#include <array>

namespace opd::registration {

namespace {

template <std::size_t Count>
bool isAmong(const std::array<const ui::Control*, Count>& controls, const ui::Control& control) {
    return std::find(controls.begin(), controls.end(), &control) != controls.end();
}

bool isReadOnly(const ui::Control& field) {
    return field.kind() == ui::Kind::TextBox && static_cast<const ui::TextBox&>(field).readOnly;
}

} // namespace

bool isSent(const Fields& fields, const ui::Control& field) {
    const PersonalTab& personal = fields.personal;
    const ConsultationTab& consultation = fields.consultation;
    const std::array<const ui::Control*, 6> unsent{&fields.history.txtDiagnosis, &personal.txtSeniorID,
                                                   &personal.chkSenior,          &consultation.complaint.code,
                                                   &consultation.complaint.name, &personal.cmbPaycode};
    const std::array<const ui::Control*, 3> unsentChoices{&personal.plan, &consultation.patientType,
                                                          &fields.employment.employed};
    return !isReadOnly(field) && !isAmong(unsent, field) && field.floatsOver == nullptr &&
           !(field.kind() == ui::Kind::OptionButton && isAmong(unsentChoices, *field.container()));
}

bool isSentHere(const Fields& fields, const ui::Control& field, const Globals& globals, const Record& record) {
    const AdditionalTab& additional = fields.additional;
    if (&field == &fields.history.complaint && !globals.client().storesComplaint())
        return false;
    if (field.container() == &additional.letterOfAuthorization && &field != &additional.txtApprovalNo &&
        !savesAuthorization(globals, record))
        return false;
    return isSent(fields, field);
}

std::string textToStore(const Fields& fields, const ui::TextBox& box) {
    const HeaderFields& header = fields.header;
    const PersonalTab& personal = fields.personal;
    const std::array<const ui::Control*, 8> raised{
        &header.txtLastName,   &header.txtFirstName,    &header.txtMiddleName, &personal.txtHouseStreet,
        &personal.txtBarangay, &personal.txtBarangayID, &personal.telephone,   &personal.txtRemarks};
    return isAmong(raised, box) ? text::upper(box.text()) : box.text();
}

bool savesAuthorization(const Globals& globals, const Record& record) {
    return globals.IsAllowOPDUpdateHMOLOA && (record.CompanyClass == "P" || record.CompanyClass == "H");
}

} // namespace opd::registration
