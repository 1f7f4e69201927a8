#pragma once

#include <array>

namespace opd {

/// The hospital's optional behaviours, a line each: the member, which is called as the column that it is read from, and
/// the term that asks for it. The terms stand in the settings query letter for letter, odd spellings included, as the
/// hospitals know it. A column of the same name belongs to the embedded hospital's schema.
// clang-format off
#define OPD_FEATURE_FLAGS(FLAG)                                                                                        \
    FLAG(isHMORate,                     "isnull(IsHMORate,0) isHMORate")                                               \
    FLAG(IsOPDstatRate,                 "isnull(IsOPDstatRate,0) IsOPDstatRate")                                       \
    FLAG(IsAllowOPDShowLabSpecimen,     "isnull(IsAllowOPDShowLabSpecimen,0) IsAllowOPDShowLabSpecimen")               \
    FLAG(IsAllowOPDChargeChangePrice,   "isnull(IsAllowOPDChargeChangePrice,0) IsAllowOPDChargeChangePrice")           \
    FLAG(isAllowOPDRegisterInpatient,   "isnull(isAllowOPDRegisterInpatient,0) isAllowOPDRegisterInpatient")           \
    FLAG(IsAllowOPDCheckLabSection,     "isnull(IsAllowOPDCheckLabSection,0) IsAllowOPDCheckLabSection")               \
    FLAG(IsAllowOPDAssessmentRateG,     "isnull(IsAllowOPDAssessmentRateG,0) IsAllowOPDAssessmentRateG")               \
    FLAG(isAllowCorvane,                "isnull(isAllowCorvane,0) isAllowCorvane")                                     \
    FLAG(isAllowOPDSearchBarangay,      "isnull(isAllowOPDSearchBarangay,0) isAllowOPDSearchBarangay")                 \
    FLAG(isAllowOPDSearchCardNumber,    "Isnull(isAllowOPDSearchCardNumber,0) isAllowOPDSearchCardNumber")             \
    FLAG(IsAllowOPDMABRate,             "isnull(IsAllowOPDMABRate,0) IsAllowOPDMABRate")                               \
    FLAG(IsAllowOPDUpdateHMOLOA,        "isnull(IsAllowOPDUpdateHMOLOA,0) IsAllowOPDUpdateHMOLOA")                     \
    FLAG(IsAllowOPDExportReport,        "IsNull(IsAllowOPDExportReport,0) IsAllowOPDExportReport")                     \
    FLAG(IsAllowOPDSearchDocBySched,    "IsNull(IsAllowOPDSearchDocBySched,0) IsAllowOPDSearchDocBySched")             \
    FLAG(IsAllowOPDPatientClass,        "IsNull(IsAllowOPDPatientClass,0) IsAllowOPDPatientClass")                     \
    FLAG(IsAllowOPDShowDiscount,        "IsNull(IsAllowOPDShowDiscount,0) IsAllowOPDShowDiscount")                     \
    FLAG(isAllowOPDPayCode,             "isnull(isAllowOPDPayCode,0) isAllowOPDPayCode")                               \
    FLAG(isAllowMultipleRequest,        "isnull(isAllowMultipleRequest,0) isAllowMultipleRequest")                     \
    FLAG(allowEndConsultation,          "isnull(allowEndConsultation,0) allowEndConsultation")                         \
    FLAG(isAllowOPFileNumbering,        "isnull(isAllowOPFileNumbering,0) isAllowOPFileNumbering")                     \
    FLAG(isAllowCreateNewIDnum,         "isnull(isAllowCreateNewIDnum,0)isAllowCreateNewIDnum")                        \
    FLAG(isAllowSpecializedCompanyRate, "isnull(isAllowSpecializedCompanyRate,0)isAllowSpecializedCompanyRate")
// clang-format on

/// All off until the hospital's settings row is read.
struct FeatureFlags {
#define OPD_FLAG_MEMBER(member, term) bool member = false;
    OPD_FEATURE_FLAGS(OPD_FLAG_MEMBER)
#undef OPD_FLAG_MEMBER
};

/// A flag and the name of its settings column.
struct FeatureFlag {
    const char* column;
    bool FeatureFlags::*flag;
};

/// Every flag, in the order of the settings query.
#define OPD_FLAG_ENTRY(member, term) FeatureFlag{#member, &FeatureFlags::member},
inline constexpr auto featureFlags = std::to_array<FeatureFlag>({OPD_FEATURE_FLAGS(OPD_FLAG_ENTRY)});
#undef OPD_FLAG_ENTRY

} // namespace opd
