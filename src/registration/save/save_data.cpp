#include "registration/save/save_data.h"

#include "data/rows.h"
#include "data/saving_settings.h"
#include "registration/load/visit_loader.h"
#include "registration/record/codes.h"
#include "registration/save/following_parts.h"
#include "registration/save/numbers.h"
#include "registration/save/refusals.h"
#include "registration/save/save_failures.h"
#include "registration/statements/patient_statements.h"
#include "registration/statements/visit_statements.h"

#include <optional>

namespace opd::registration {

namespace {

using ado::Statement;

/// Numbers drawn for a save that then failed serve the next try: should the first have been written after all, the same
/// visit is written again and not a second one.
bool takeNumbers(const Session& session, const HeaderFields& header, Record& record) {
    if (!record.isNewPatient())
        record.SaveHospNum = shownHospNum(header);
    else if (record.SaveHospNum.empty())
        record.SaveHospNum = drawHospNum(session).value_or(std::string{});
    if (record.isNewPatient() && record.SaveHospNum.empty())
        return false;
    if (record.isNewVisit()) {
        if (record.SaveIDNum.empty())
            record.SaveIDNum = drawOpdNumber(session).value_or(std::string{});
        return !record.SaveIDNum.empty();
    }
    record.SaveIDNum = text::trimmed(header.txtOPDNum.text());
    if (!record.SaveIDNum.empty())
        record.SaveIDNum.pop_back();
    return true;
}

/// What a commit failed with that may have been carried out.
class CommitWithoutAnswer : public ado::Error {
  public:
    explicit CommitWithoutAnswer(const ado::Error& failure) : Error(failure) {}
};

void rememberCounted(Record& record, const std::vector<std::string>& doctors) {
    record.countedDoctors.insert(record.countedDoctors.end(), doctors.begin(), doctors.end());
}

void commit(Record& record, ado::Transaction& transaction, const std::vector<std::string>& doctors) {
    try {
        transaction.commit();
    } catch (const ado::Error& failure) {
        if (!leavesDoubt(failure))
            throw;
        record.mayBeWritten = record.rowsTellOfDoubt = true;
        rememberCounted(record, doctors);
        throw CommitWithoutAnswer(failure);
    }
    rememberCounted(record, doctors);
}

bool isThere(const Session& session, const Record& record) {
    return !data::openClient(session, findVisit(savedVisit(record))).EndOfFile();
}

/// Whether the commit was carried out; nothing where that cannot be seen. A visit on file was not saved while all
/// stands as it was opened; where it does not, that may be another desk's doing.
std::optional<bool> becameOf(const Session& session, const Record& record, bool updateOnly) {
    if (record.isEdit() && record.rowsTellOfDoubt && record.rows.stillStand(session))
        return false;
    if (record.isEdit() || updateOnly || !record.isNewVisit())
        return std::nullopt;
    return isThere(session, record);
}

/// Asks the database at once what became of the commit. Returns when the new visit is there; otherwise throws
/// OutcomeTold with what is known. Whatever is answered, the next try asks again before it writes.
void askWhatBecameOf(const CommitWithoutAnswer& commit, const Session& session, const Record& record, bool updateOnly) {
    std::optional<bool> there;
    try {
        there = becameOf(session, record, updateOnly);
    } catch (const std::exception&) {
        throw perhapsSaved(commit);
    }
    if (!there)
        throw perhapsSaved(commit);
    if (!*there)
        throw record.isEdit() ? unchanged(commit) : notThere(commit);
    session.desktop.ask({.text = thereAllTheSame(record, commit), .icon = ui::Icon::Information});
}

/// After a commit without an answer: looks what became of it, so that the doctors of the visit are counted once.
void settleDoubt(const Session& session, Record& record) {
    if (!record.mayBeWritten || becameOf(session, record, false).value_or(true))
        return;
    record.mayBeWritten = false;
    record.countedDoctors.clear();
}

std::vector<Statement> patientStatements(const Globals& globals, const Fields& fields, const Record& record) {
    std::vector<Statement> statements{updateMaster(fields, record, globals.client(), globals.isAllowOPDSearchBarangay),
                                      saveAllergies(fields, record)};
    if (globals.client().writesHistory)
        statements.push_back(updateHistory(fields, record));
    return statements;
}

std::vector<Statement> visitStatements(const Globals& globals, const Fields& fields, const Record& record,
                                       const std::vector<std::string>& doctors) {
    std::vector<Statement> statements{
        updateVisit(fields, record, globals.client(), globals.AccountTypeCode, globals.gUserID)};
    for (const std::string& doctor : doctors)
        statements.push_back(countConsultation(doctor));
    for (Statement& statement : updateAdditionalDoctors(fields, record))
        statements.push_back(std::move(statement));
    return statements;
}

/// A patient on file may have been registered at another desk since this form was opened, which would be a second visit
/// of the day. Asked behind the first write, for which the other one's save has to wait.
void refuseSecondRegistration(const Session& session, const Record& record) {
    const bool isFirstTry = !record.isWritten && !record.mayBeWritten;
    if (!isFirstTry || record.isNewPatient() || !record.isNewVisit() || !data::allowsOneVisitADay(session.settings))
        return;
    if (const std::string registered = registeredToday(session, record.SaveHospNum); !registered.empty())
        throw ado::Error(registered + ". It was made at another desk after this form was opened.");
}

/// False, with nothing written, when another desk stored something since the form was loaded. The rows are asked for
/// inside the transaction, so that on a database that lets one writer in at a time nobody comes between.
bool writePatientAndVisit(Session& session, const Fields& fields, Record& record, bool updateOnly) {
    const std::vector<std::string> doctors = updateOnly ? std::vector<std::string>{} : doctorsToCount(fields, record);
    const bool looks = !record.isNewPatient() && data::watchesOtherDesks(session.settings);
    // Everything is put together before the transaction begins, which keeps the other desks out.
    const std::vector<Statement> ofPatient = patientStatements(session.globals, fields, record);
    const std::vector<Statement> ofVisit =
        updateOnly ? std::vector<Statement>{} : visitStatements(session.globals, fields, record, doctors);
    ado::Transaction transaction(session.connection());
    record.isOutdated = looks && !record.rows.stillStand(session);
    if (record.isOutdated) {
        if (!updateOnly)
            refuseSecondRegistration(session, record); // whatever the clerk would choose
        return false;
    }
    for (const Statement& statement : ofPatient)
        data::execute(session, statement);
    if (!updateOnly)
        refuseSecondRegistration(session, record);
    for (const Statement& statement : ofVisit)
        data::execute(session, statement);
    commit(record, transaction, doctors);
    return true;
}

/// From here on the form is the one of the written visit: what fails later can be tried again without a second visit.
void standForWrittenVisit(HeaderFields& header, Record& record) {
    record.isWritten = true;
    record.mayBeWritten = false;
    record.HospNum = record.SaveHospNum;
    record.AdmissionNumber = savedVisit(record);
    header.txtHospNum.setText(record.SaveHospNum);
    header.txtOPDNum.setText(savedVisit(record));
}

/// A number that turned out to be another one's is not tried again. Where it may be this registration that was written
/// under it, it stays.
void forgetTakenNumbers(Record& record, const ado::Error& failure) {
    constexpr long keyIsTaken = 2627;
    if (failure.number() != keyIsTaken || record.mayBeWritten || record.isWritten)
        return;
    if (record.isNewPatient())
        record.SaveHospNum.clear();
    if (record.isNewVisit())
        record.SaveIDNum.clear();
}

/// Writes patient and visit under the numbers that were taken; false when another desk came first. Throws ado::Error
/// that says what is stored.
bool writeWhole(Session& session, Fields& fields, Record& record, bool updateOnly) {
    if (!updateOnly)
        settleDoubt(session, record);
    try {
        if (!writePatientAndVisit(session, fields, record, updateOnly))
            return false;
    } catch (const CommitWithoutAnswer& commit) {
        askWhatBecameOf(commit, session, record, updateOnly);
    } catch (const ado::Error& failure) {
        forgetTakenNumbers(record, failure);
        throw;
    }
    standForWrittenVisit(fields.header, record);
    return true;
}

/// Everything up to the commit. False when it was refused, no number could be drawn, or another desk came first.
bool writeRegistration(Session& session, Fields& fields, Record& record, bool updateOnly) {
    if (!maySave(session, fields, record, updateOnly))
        return false;
    record.lacksNumber = !takeNumbers(session, fields.header, record);
    if (record.lacksNumber)
        return false;
    return writeWhole(session, fields, record, updateOnly);
}

/// Whether another desk can have revoked the visit since it was last seen here. One that was opened as revoked is
/// brought back by its save.
bool mayBeRevoked(const Session& session, const Fields& fields, const Record& record) {
    const bool isKnownToOthers = record.isEdit() || record.isWritten || record.mayBeWritten;
    return isKnownToOthers && !fields.header.lblAdmissionStatus.visible() && data::watchesOtherDesks(session.settings);
}

} // namespace

bool SaveData(Session& session, Fields& fields, Record& record, bool UpdateOnly) {
    const ui::BusyPointer busy(session.desktop);
    record.lacksNumber = false;
    record.isOutdated = false;
    computeKeptCodes(fields, record);
    const bool perhapsRevoked = mayBeRevoked(session, fields, record); // the first save of a new visit is quicker
    bool written = false;
    try {
        written = writeRegistration(session, fields, record, UpdateOnly);
    } catch (const OutcomeTold&) {
        throw;
    } catch (const std::exception& failure) {
        throw nothingSaved(record, failure);
    }
    if (!written)
        return record.lacksNumber;
    writeFollowingParts(session, fields, record, UpdateOnly, perhapsRevoked);
    return true;
}

} // namespace opd::registration
