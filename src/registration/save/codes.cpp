#include "registration/save/codes.h"

#include "platform/clock/date_text.h"
#include "platform/text/text.h"

namespace opd::registration {

std::string purposeCode(const Fields& fields) {
    if (fields.personal.purposeRicu.checked())
        return "R";
    return fields.personal.purposeHema.checked() ? "H" : "";
}

std::string perUnitCode(const Fields& fields) {
    const ConsultationTab& consultation = fields.consultation;
    const ui::OptionButton* const units[] = {&consultation.optLying, &consultation.optEndoscopy,
                                             &consultation.optMiniOR, &consultation.optDiabetes};
    for (std::size_t n = 0; n < std::size(units); ++n)
        if (units[n]->selected())
            return std::to_string(n + 1);
    return {};
}

std::string seniorCode(const Fields& fields) {
    return fields.personal.chkSeniorCitizen.checked() ? "1" : "0";
}

std::string admDateTime(const Fields& fields) {
    return dateText(fields.header.dtpAdmDate.value()) + " " + timeText(fields.header.txtAdmTime.value());
}

std::string savedVisit(const Record& record) {
    return text::upper(record.SaveIDNum) + "B";
}

void computeKeptCodes(FormContext& form) {
    const PersonalTab& personal = form.fields.personal;
    if (personal.chkPatientType.value() < 2)
        form.record.PatientTypeCode = personal.chkPatientType.checked() ? "W" : "C";
    form.record.CorvanePatientCode = form.fields.additional.corvanePatient.selected() ? "1" : "0";
    form.record.HemoCode = personal.chkHemo.checked() ? "1" : "0";
}

int selectedPosition(const ui::ControlArray<ui::OptionButton>& options, std::initializer_list<int> indexes) {
    int position = 0;
    for (const int index : indexes) {
        ++position;
        if (options(index).selected())
            return position;
    }
    return 0;
}

} // namespace opd::registration
