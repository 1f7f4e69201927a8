#pragma once

#include "ado/connection.h"
#include "base/clock/date_time.h"
#include "com/object.h"
#include "session/client_profile.h"
#include "session/feature_flags.h"

#include <map>
#include <memory>
#include <string>

namespace opd::registration {
struct KeptRegistration;
}

namespace opd {

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

    std::string gClientName;     ///< the client hospital's code: "RVT", "TKWA" or another; see `setClient`
    std::string gCompanyName;    ///< the hospital's name
    std::string gCompanyAddress; ///< and address, for reports

    std::string gSelectedHospNum; ///< hospital number of the highlighted row of the search window

    std::string gDuplicateLastName; ///< the patient on file that a new registration turned out to be; empty when none
    std::string gDuplicateBirthDate;
    std::string gDuplicateSex;
    std::string duplicateLedBackTo; ///< the last of these patients, so that a twin can be registered the second time

    std::string lastOutcome;    ///< what the last registration stored, for the next search window to say
    std::string lastRegistered; ///< whom it was about and the numbers; the search windows show it until the next one

    std::string lastHospNum;   ///< the patient whose visit was stored last, for a label or card; empty when none was
    std::string lastOPDNumber; ///< and that visit, with its "B"

    /// What was typed into registrations that could not be saved, by hospital number or "NEW"; until each is saved or
    /// given up.
    std::map<std::string, std::shared_ptr<const registration::KeptRegistration>> keptRegistrations;

    bool gForceSearch = false;   ///< a lookup button asks the next lookup to list everything
    std::string AccountTypeCode; ///< "P" patient pays, "C" company; set when a registration is checked

    /// Takes over the client hospital's code, and with it what that client does differently.
    void setClient(const std::string& code);

    /// What the client hospital does differently.
    const ClientProfile& client() const { return *m_client; }

    /// The globals of the calling thread.
    static Globals& ofThread();

  private:
    const ClientProfile* m_client = &profileOf({});
};

} // namespace opd
