#include "registration/save/save_failures.h"

#include "base/text/text.h"
#include "registration/record/codes.h"

namespace opd::registration {

namespace {

ado::Error told(const std::exception& failure, const std::string& truth) {
    const std::string message = failure.what() + std::string{"\r\n\r\n"} + truth;
    const auto* error = dynamic_cast<const ado::Error*>(&failure);
    if (error == nullptr)
        return ado::Error(message);
    ado::Error result(message, error->source(), error->number(), error->sqlState());
    result.setLeavesDoubt(error->leavesDoubt());
    return result;
}

std::string numbers(const Record& record) {
    return "Hosp. # (" + record.SaveHospNum + ") and Case # (" + savedVisit(record) + ")";
}

} // namespace

OutcomeTold perhapsSaved(const std::exception& failure) {
    return OutcomeTold(told(failure, "It is not certain whether this was saved. Please try again: it is saved under "
                                     "the same numbers, and cannot come twice."));
}

OutcomeTold notThere(const std::exception& failure) {
    return OutcomeTold(told(failure,
                            "The database was asked: the visit is not there. Nothing was saved. What was typed "
                            "is still here; you can try again."));
}

OutcomeTold unchanged(const std::exception& failure) {
    return OutcomeTold(told(failure, "The database was asked: all stands as it was when this form was opened. Nothing "
                                     "was saved. What was typed is still here; you can try again."));
}

std::string thereAllTheSame(const Record& record, const std::exception& failure) {
    return failure.what() + std::string{"\r\n\r\nThe database was asked: the visit is saved as "} + numbers(record) +
           ". What belongs to it is saved now.";
}

ado::Error nothingSaved(const Record& record, const std::exception& failure) {
    if (record.mayBeWritten)
        return perhapsSaved(failure);
    if (record.isWritten)
        return told(failure, "What was saved before as " + numbers(record) +
                                 " stands, but is not complete. Nothing of this try was saved; you can try again.");
    return told(failure, "Nothing was saved. What was typed is still here; you can try again.");
}

bool leavesDoubt(const ado::Error& failure) {
    return failure.leavesDoubt() || failure.number() == 0 || failure.sqlState().starts_with("08");
}

ado::Error incomplete(const Record& record, bool updateOnly, const std::exception& failure,
                      const std::vector<std::string>& missingParts) {
    const std::string stands = updateOnly ? "The patient's record is saved as Hosp. # (" + record.SaveHospNum + ")."
                                          : "The visit is saved as " + numbers(record) + ".";
    return told(failure, stands + " Still missing: " + text::joined(missingParts, ", ") +
                             ". Please try again to complete it; that makes no second visit.");
}

} // namespace opd::registration
