#include "session/client_profile.h"

#include <algorithm>

namespace opd {

namespace {

using Master = MasterArgument;
using Visit = VisitArgument;

/// The first one is that of all others.
const std::vector<ClientProfile>& profiles() {
    static const std::vector<Master> usualMaster{Master::SeniorMark, Master::SeniorNumber, Master::Occupation,
                                                 Master::BloodType, Master::Title};
    static const std::vector<Visit> usualVisit{Visit::ChiefComplaint, Visit::PulseRate, Visit::CardToApproval,
                                               Visit::Corvane, Visit::Hemodialysis};
    static const std::vector<ClientProfile> all{
        {.code = "",
         .usesPayCodes = false,
         .writesHistory = true,
         .asksLastMenstruation = false,
         .master = usualMaster,
         .visit = usualVisit},
        {.code = "RVT",
         .usesPayCodes = true,
         .writesHistory = false,
         .asksLastMenstruation = false,
         .master = {Master::Religion, Master::SeniorMark, Master::SeniorMark, Master::SeniorNumber, Master::Occupation,
                    Master::BloodType, Master::Title},
         .visit = {Visit::Cause1, Visit::Cause2, Visit::Cause3, Visit::PulseRate, Visit::PayCode,
                   Visit::CardToApproval}},
        {.code = "TKWA",
         .usesPayCodes = false,
         .writesHistory = true,
         .asksLastMenstruation = true,
         .master = usualMaster,
         .visit = usualVisit},
    };
    return all;
}

} // namespace

bool ClientProfile::storesComplaint() const {
    return std::ranges::find(visit, VisitArgument::ChiefComplaint) != visit.end();
}

const ClientProfile& profileOf(const std::string& code) {
    const auto found = std::ranges::find(profiles(), std::string_view{code}, &ClientProfile::code);
    return found == profiles().end() ? profiles().front() : *found;
}

} // namespace opd
