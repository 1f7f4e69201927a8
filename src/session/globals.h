#pragma once

#include "ado/connection.h"
#include "base/clock/date_time.h"
#include "com/object.h"

#include <array>
#include <map>
#include <memory>
#include <string>

namespace opd::registration {
struct KeptRegistration;
}

namespace opd {

/// The hospital's optional behaviours, switched by the columns of its settings row. All off until the row is read.
struct FeatureFlags {
    bool isHMORate = false;
    bool IsOPDstatRate = false;
    bool IsAllowOPDShowLabSpecimen = false;
    bool IsAllowOPDChargeChangePrice = false;
    bool isAllowOPDRegisterInpatient = false;
    bool IsAllowOPDCheckLabSection = false;
    bool IsAllowOPDAssessmentRateG = false;
    bool isAllowCorvane = false;
    bool isAllowOPDSearchBarangay = false;
    bool isAllowOPDSearchCardNumber = false;
    bool IsAllowOPDMABRate = false;
    bool IsAllowOPDUpdateHMOLOA = false;
    bool IsAllowOPDExportReport = false;
    bool IsAllowOPDSearchDocBySched = false;
    bool IsAllowOPDPatientClass = false;
    bool IsAllowOPDShowDiscount = false;
    bool isAllowOPDPayCode = false;
    bool isAllowMultipleRequest = false;
    bool allowEndConsultation = false;
    bool isAllowOPFileNumbering = false;
    bool isAllowCreateNewIDnum = false;
    bool isAllowSpecializedCompanyRate = false;
};

/// A flag and the name of its settings column.
struct FeatureFlag {
    const char* column;
    bool FeatureFlags::*flag;
};

/// Every flag, in the order in which the settings row is read.
inline constexpr std::array<FeatureFlag, 22> featureFlags{{
    {"isHMORate", &FeatureFlags::isHMORate},
    {"isOPDStatRate", &FeatureFlags::IsOPDstatRate},
    {"IsAllowOPDShowLabSpecimen", &FeatureFlags::IsAllowOPDShowLabSpecimen},
    {"IsAllowOPDChargeChangePrice", &FeatureFlags::IsAllowOPDChargeChangePrice},
    {"isAllowOPDRegisterInpatient", &FeatureFlags::isAllowOPDRegisterInpatient},
    {"IsAllowOPDCheckLabSection", &FeatureFlags::IsAllowOPDCheckLabSection},
    {"IsAllowOPDAssessmentRateG", &FeatureFlags::IsAllowOPDAssessmentRateG},
    {"IsAllowCorvane", &FeatureFlags::isAllowCorvane},
    {"isAllowOPDSearchBarangay", &FeatureFlags::isAllowOPDSearchBarangay},
    {"isAllowOPDSearchCardNumber", &FeatureFlags::isAllowOPDSearchCardNumber},
    {"IsAllowOPDMABRate", &FeatureFlags::IsAllowOPDMABRate},
    {"IsAllowOPDUpdateHMOLOA", &FeatureFlags::IsAllowOPDUpdateHMOLOA},
    {"IsAllowOPDExportReport", &FeatureFlags::IsAllowOPDExportReport},
    {"IsAllowOPDSearchDocBySched", &FeatureFlags::IsAllowOPDSearchDocBySched},
    {"IsAllowOPDPatientClass", &FeatureFlags::IsAllowOPDPatientClass},
    {"IsAllowOPDShowDiscount", &FeatureFlags::IsAllowOPDShowDiscount},
    {"isAllowOPDPayCode", &FeatureFlags::isAllowOPDPayCode},
    {"isAllowMultipleRequest", &FeatureFlags::isAllowMultipleRequest},
    {"allowEndConsultation", &FeatureFlags::allowEndConsultation},
    {"isAllowOPFileNumbering", &FeatureFlags::isAllowOPFileNumbering},
    {"isAllowCreateNewIDnum", &FeatureFlags::isAllowCreateNewIDnum},
    {"isAllowSpecializedCompanyRate", &FeatureFlags::isAllowSpecializedCompanyRate},
}};

/// What all windows of one host thread share. Filled at session start and by the windows named beside the members.
struct Globals : FeatureFlags {
    std::shared_ptr<ado::Connection> gConnection; ///< the host's connection; null until it is handed over
    std::string gUserID;                          ///< the user stamped into logs and visits
    std::string gSearchCriteria;                  ///< pre-filled into the search window
    std::string gDBUser;                          ///< for the report's log-on, as are the next two
    std::string gDBPassword;
    std::string gDBServer;
    com::Object gCodeSearch;                 ///< the code search component
    com::Ref<com::IUnknown> gSearcherObject; ///< kept for the host, used nowhere

    DateTime gServerDate; ///< the reference date of ages and date rules; set when a window loads

    std::string gClientName;     ///< the client hospital's code: "RVT", "TKWA" or another
    std::string gCompanyName;    ///< the hospital's name
    std::string gCompanyAddress; ///< and address, for reports

    std::string gSelectedHospNum; ///< hospital number of the highlighted row of the search window

    std::string gDuplicateLastName; ///< the patient on file that a new registration turned out to be; empty when none
    std::string gDuplicateBirthDate;
    std::string gDuplicateSex;
    std::string duplicateLedBackTo; ///< the last of these patients, so that a twin can be registered the second time

    std::string lastOutcome; ///< what the last registration stored, for the next search window to say

    /// What was typed into registrations that could not be saved, by hospital number or "NEW"; until each is saved or
    /// given up.
    std::map<std::string, std::shared_ptr<const registration::KeptRegistration>> keptRegistrations;

    bool gForceSearch = false;   ///< a lookup button asks the next lookup to list everything
    std::string AccountTypeCode; ///< "P" patient pays, "C" company; set when a registration is checked

    /// The globals of the calling thread.
    static Globals& ofThread();
};

} // namespace opd
