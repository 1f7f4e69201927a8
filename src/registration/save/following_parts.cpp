#include "registration/save/following_parts.h"

#include "base/text/text.h"
#include "data/rows.h"
#include "registration/marks/visit_marks.h"
#include "registration/photo/photo.h"
#include "registration/record/codes.h"
#include "registration/record/sent_fields.h"
#include "registration/save/save_failures.h"
#include "registration/statements/patient_statements.h"
#include "registration/statements/queries.h"
#include "registration/statements/visit_statements.h"
#include "registration/subrecords/dependents.h"

#include <functional>

namespace opd::registration {

namespace {

using ado::Statement;

/// The name is for the clerk; what has none is nothing that can be missing.
struct FollowingPart {
    const char* name;
    std::function<void()> write;
};

std::string outcome(const HeaderFields& header, const Record& record, bool updateOnly) {
    const std::string name = text::upper(header.txtLastName.text()) + ", " + text::upper(header.txtFirstName.text()) +
                             " " + text::upper(header.txtMiddleName.text());
    return updateOnly ? name + " record was updated."
                      : name + " was registered as Hosp. # (" + record.SaveHospNum + ") and Case # (" +
                            record.SaveIDNum + "B).";
}

/// The parts of one save, in the order of their writing.
class FollowingParts {
  public:
    FollowingParts(Session& session, Fields& fields, const Record& record, bool updateOnly, bool mayBeRevoked)
        : m_session(session), m_fields(fields), m_record(record), m_updateOnly(updateOnly),
          m_mayBeRevoked(mayBeRevoked) {
        const Globals& globals = session.globals;
        const bool getsFileNumber = globals.isAllowOPFileNumbering && !fields.personal.chkWalkIn.checked();
        add("contacts, parents and employment", &updateExtendedMaster);
        m_parts.push_back({"dependents", [this] {
                               SaveDependents(m_session, m_fields.employment.mshDependents, m_record.SaveHospNum);
                           }});
        add("medical history", &updateMedicalHistory);
        add("treatments", &updateTreatments);
        if (record.PhotoTaken)
            m_parts.push_back({"photograph", [this] {
                                   m_photographFailure =
                                       storePhotograph(m_session.devices.images, m_fields.additional, m_record);
                               }});
        m_parts.push_back({"walk-in mark", [this] { writeWalkIn(); }});
        addMarks(marksBeforeAuthorization());
        addIf(savesAuthorization(globals, record), "letter of authorization", &saveAuthorization);
        addMarks(marksBehindAuthorization());
        addIf(globals.client().asksLastMenstruation, "last menstrual period", &saveProfile);
        m_parts.push_back({nullptr, [this] { tellOutcome(); }});
        if (record.isEdit())
            addStatement("log of this change",
                         [this] { return logEdit(m_fields.header.txtOPDNum.text(), m_session.globals.gUserID); });
        if (getsFileNumber)
            addStatement("file number", [this] { return giveFileNumber(m_record.SaveHospNum); });
    }

    void write() {
        for (m_current = 0; m_current < m_parts.size(); ++m_current) {
            try {
                m_parts[m_current].write();
            } catch (const std::exception& failure) {
                throw incomplete(m_record, m_updateOnly, failure, missing(failure));
            }
        }
    }

  private:
    using OfForm = Statement (*)(const Fields&, const Record&);

    void addStatement(const char* name, std::function<Statement()> statement) {
        m_parts.push_back({name, [this, statement = std::move(statement)] { data::execute(m_session, statement()); }});
    }

    void add(const char* name, OfForm statement) {
        addStatement(name, [this, statement] { return statement(m_fields, m_record); });
    }

    void addIf(bool wanted, const char* name, OfForm statement) {
        if (wanted)
            add(name, statement);
    }

    void addMarks(std::span<const VisitMark> marks) {
        for (const VisitMark& mark : marks)
            if (mark.isKept(m_session.globals))
                addStatement(mark.name,
                             [this, &mark] { return updateColumn(m_record, mark.column, mark.stored(m_fields)); });
    }

    /// The mark of a walk-in goes with the status, which says of a revoked visit that it is one. Where another desk may
    /// have revoked it, the transaction keeps that desk out from the asking to the writing, and a revoked visit keeps
    /// its status.
    void writeWalkIn() {
        if (!m_mayBeRevoked) {
            data::execute(m_session, updateWalkIn(m_fields, m_record));
            return;
        }
        ado::Transaction transaction(m_session.connection());
        m_isRevoked = isRevoked();
        const char* const mark = bit(m_fields.personal.chkWalkIn.checked());
        data::execute(m_session,
                      m_isRevoked ? updateColumn(m_record, "isWalkIn", mark) : updateWalkIn(m_fields, m_record));
        transaction.commit();
    }

    bool isRevoked() const {
        const ado::Recordset visit = data::openClient(m_session, statements::visit(savedVisit(m_record)));
        return !visit.EndOfFile() && text::upper(text::trimmed(data::textOf(visit, "OPDStatus"))) == "R";
    }

    void tellOutcome() {
        ui::Desktop& desktop = m_session.desktop;
        desktop.ask({.text = outcome(m_fields.header, m_record, m_updateOnly),
                     .caption = "Notification",
                     .icon = ui::Icon::Information});
        if (m_isRevoked)
            desktop.ask(
                {.text = "Visit " + savedVisit(m_record) +
                         " was revoked at another desk while it was saved here. What was entered is stored, and "
                         "the visit stays revoked.",
                 .caption = "Notification",
                 .icon = ui::Icon::Exclamation});
        if (!m_photographFailure.empty())
            desktop.ask({.text = m_photographFailure, .caption = "Notification", .icon = ui::Icon::Exclamation});
    }

    /// A part whose answer was lost may be there; writing it again changes nothing then.
    std::vector<std::string> missing(const std::exception& failure) const {
        const auto* error = dynamic_cast<const ado::Error*>(&failure);
        const bool isDoubtful = error != nullptr && error->leavesDoubt();
        std::vector<std::string> names;
        if (!m_photographFailure.empty())
            names.emplace_back("photograph");
        for (std::size_t part = m_current; part < m_parts.size(); ++part)
            if (m_parts[part].name != nullptr)
                names.push_back(m_parts[part].name +
                                std::string{isDoubtful && part == m_current ? " (perhaps stored)" : ""});
        return names;
    }

    Session& m_session;
    Fields& m_fields;
    const Record& m_record;
    bool m_updateOnly;
    bool m_mayBeRevoked;
    bool m_isRevoked = false; ///< by another desk, since this one saves
    std::string m_photographFailure;
    std::vector<FollowingPart> m_parts;
    std::size_t m_current = 0;
};

} // namespace

void writeFollowingParts(Session& session, Fields& fields, const Record& record, bool updateOnly, bool mayBeRevoked) {
    const ado::LongPatience patience(session.connection()); // the visit stands already
    FollowingParts(session, fields, record, updateOnly, mayBeRevoked).write();
}

} // namespace opd::registration
