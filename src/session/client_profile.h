#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace opd {

/// What can stand at the end of a client's argument list for the patient master.
enum class MasterArgument { Religion, SeniorMark, SeniorNumber, Occupation, BloodType, Title };

/// What can stand at the end of a client's argument list for the visit.
enum class VisitArgument {
    ChiefComplaint,
    Cause1,
    Cause2,
    Cause3,
    PulseRate,
    PayCode,
    CardToApproval, ///< the run from the card number to the approval number
    Corvane,
    Hemodialysis,
};

/// What one client hospital does differently.
struct ClientProfile {
    std::string_view code;
    bool usesPayCodes;         ///< shows pay codes, and which one a visit has
    bool writesHistory;        ///< keeps what the patient came for with the patient's history
    bool asksLastMenstruation; ///< shows, loads and stores the last menstruation period
    std::vector<MasterArgument> master;
    std::vector<VisitArgument> visit;

    /// True when a visit has a place for the memo "Chief Complaint".
    bool storesComplaint() const;
};

/// The profile of a client code; that of most hospitals for a code without one.
const ClientProfile& profileOf(const std::string& code);

} // namespace opd
