#pragma once

#include "registration/fields/fields.h"

#include <type_traits>
#include <vector>

/// The texts of the extended master, a line each: which column shows itself in which box. Loading reads the lines by
/// their columns, saving sends them in their order; what is loaded with the patient master has no column here.
namespace opd::registration {

template <class Form> struct ExtendedText {
    const char* column;
    std::conditional_t<std::is_const_v<Form>, const ui::TextBox, ui::TextBox>& box;
};

template <class Form> using ExtendedTexts = std::vector<ExtendedText<Form>>;

/// The texts that are sent before the codes of employment.
template <class Form> ExtendedTexts<Form> peopleTexts(Form& fields) {
    auto& personal = fields.personal;
    auto& additional = fields.additional;
    auto& employment = fields.employment;
    return {{nullptr, personal.birthPlace},
            {nullptr, personal.txtNationality},
            {nullptr, personal.txtReligion},
            {"Spouse", additional.spouseName},
            {"mother", personal.motherName},
            {"Father", personal.fatherName},
            {"Employer", employment.employerName},
            {"EmployerTelNum", employment.employerTelephone},
            {"EmployerAddress", employment.employerAddress},
            {"ContactName", personal.notifyName},
            {"ContactAddress", personal.notifyAddress},
            {"ContactRelation", personal.notifyRelation},
            {"ContactTelNum", personal.notifyTelephone},
            {"SpouseAddress", additional.spouseAddress},
            {"SpouseTelNum", additional.spouseTelephone},
            {"FatherAddress", personal.fatherAddress},
            {"FatherTelNum", personal.fatherTelephone},
            {"motherAddress", personal.motherAddress},
            {"motherTelNum", personal.motherTelephone},
            {"BarangayCaptain", personal.barangayCaptain},
            {"Position", employment.position}};
}

/// The texts between the codes of employment and that of social insurance.
template <class Form> ExtendedTexts<Form> employerTexts(Form& fields) {
    auto& additional = fields.additional;
    auto& employment = fields.employment;
    return {{"EmployerFax", employment.employerFax},
            {"EmployerEmail", employment.txtEmployerEmail},
            {"SpouseEmpName", additional.spouseEmployerName},
            {"SpouseEmpAddress", additional.spouseEmployerAddress},
            {"SpouseEmpTelNum", additional.spouseEmployerTelephone},
            {"SpouseEmpFax", additional.spouseEmployerFax},
            {"SpouseEmpEmail", additional.spouseEmployerEmail}};
}

/// The texts behind that code; the mobile number, which follows them, is sent as it is typed.
template <class Form> ExtendedTexts<Form> contactTexts(Form& fields) {
    return {{"HouseHold", fields.personal.household}, {"Email", fields.personal.txtEmail}};
}

} // namespace opd::registration
