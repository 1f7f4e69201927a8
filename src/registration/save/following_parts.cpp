#include "registration/save/following_parts.h"

#include "base/text/text.h"
#include "data/rows.h"
#include "registration/photo/photo.h"
#include "registration/save/master_statements.h"
#include "registration/save/save_failures.h"
#include "registration/save/visit_statements.h"
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

std::string outcome(const FormContext& form, bool updateOnly) {
    const HeaderFields& header = form.fields.header;
    const std::string name = text::upper(header.txtLastName.text()) + ", " + text::upper(header.txtFirstName.text()) +
                             " " + text::upper(header.txtMiddleName.text());
    return updateOnly ? name + " record was updated."
                      : name + " was registered as Hosp. # (" + form.record.SaveHospNum + ") and Case # (" +
                            form.record.SaveIDNum + "B).";
}

Statement giveFileNumber(const FormContext& form) {
    return Statement("Patient_data..OPD_UpdateFileNum '").value(form.record.SaveHospNum).text("'");
}

/// The parts of one save, in the order of their writing.
class FollowingParts {
  public:
    FollowingParts(FormContext& form, bool updateOnly) : m_form(form), m_updateOnly(updateOnly) {
        const Globals& globals = form.session.globals;
        const std::string& companyClass = form.record.CompanyClass;
        const bool needsAuthorization = globals.IsAllowOPDUpdateHMOLOA && (companyClass == "P" || companyClass == "H");
        const bool getsFileNumber = globals.isAllowOPFileNumbering && !form.fields.personal.chkWalkIn.checked();
        add("contacts, parents and employment", &updateExtendedMaster);
        m_parts.push_back({"dependents", [&form] { SaveDependents(form); }});
        add("medical history", &updateMedicalHistory);
        add("treatments", &updateTreatments);
        if (form.record.PhotoTaken)
            m_parts.push_back({"photograph", [this] { m_photographFailure = storePhotograph(m_form); }});
        add("walk-in mark", &updateWalkIn);
        addIf(globals.isAllowCorvane, "Corvane mark", &updateCorvane);
        addIf(globals.IsAllowOPDMABRate, "MAB mark", &updateMabRate);
        addIf(needsAuthorization, "letter of authorization", &saveAuthorization);
        addIf(globals.IsAllowOPDPatientClass, "patient class", &updatePatientClass);
        addIf(globals.client().asksLastMenstruation, "last menstrual period", &saveProfile);
        m_parts.push_back({nullptr, [this] { tellOutcome(); }});
        addIf(form.record.isEdit(), "log of this change", &logEdit);
        addIf(getsFileNumber, "file number", &giveFileNumber);
    }

    void write() {
        for (m_current = 0; m_current < m_parts.size(); ++m_current) {
            try {
                m_parts[m_current].write();
            } catch (const std::exception& failure) {
                throw incomplete(m_form, m_updateOnly, failure, missing());
            }
        }
    }

  private:
    void add(const char* name, Statement (*statement)(const FormContext&)) {
        m_parts.push_back({name, [this, statement] { data::execute(m_form.session, statement(m_form)); }});
    }

    void addIf(bool wanted, const char* name, Statement (*statement)(const FormContext&)) {
        if (wanted)
            add(name, statement);
    }

    void tellOutcome() {
        ui::Desktop& desktop = m_form.session.desktop;
        desktop.ask({.text = outcome(m_form, m_updateOnly), .caption = "Notification", .icon = ui::Icon::Information});
        if (!m_photographFailure.empty())
            desktop.ask({.text = m_photographFailure, .caption = "Notification", .icon = ui::Icon::Exclamation});
    }

    std::vector<std::string> missing() const {
        std::vector<std::string> names;
        if (!m_photographFailure.empty())
            names.emplace_back("photograph");
        for (std::size_t part = m_current; part < m_parts.size(); ++part)
            if (m_parts[part].name != nullptr)
                names.emplace_back(m_parts[part].name);
        return names;
    }

    FormContext& m_form;
    bool m_updateOnly;
    std::string m_photographFailure;
    std::vector<FollowingPart> m_parts;
    std::size_t m_current = 0;
};

} // namespace

void writeFollowingParts(FormContext& form, bool updateOnly) {
    const ado::LongPatience patience(form.session.connection()); // the visit stands already
    FollowingParts(form, updateOnly).write();
}

} // namespace opd::registration
