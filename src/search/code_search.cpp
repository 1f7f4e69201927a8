#include "search/code_search.h"

#include "data/rows.h"
#include "search/statements.h"

namespace opd::search {

namespace {

constexpr auto unspecifiedCursor = ado::CursorType::Unspecified;
constexpr auto unspecifiedLock = ado::LockType::Unspecified;

} // namespace

bool clsSearch::SearchBarangay(const std::string& code, const std::string& present) {
    const ado::Recordset rows = data::openClient(m_session, barangaySearch(code), unspecifiedCursor, unspecifiedLock);
    if (rows.RecordCount() == 0) {
        m_session.desktop.ask({.text = "Invalid Code!", .icon = ui::Icon::Critical});
        return false;
    }
    return takeOnly(rows) || choose("Barangay", code, barangaySearch("##").str(), present);
}

bool clsSearch::SearchDoctor(const std::string& criteria, const std::string& serviceCode, const std::string& present) {
    return takeOnly(data::openClient(m_session, doctorSearch(serviceCode, criteria, DoctorSearch::One),
                                     unspecifiedCursor, unspecifiedLock)) ||
           choose("Doctor", criteria, doctorSearch(serviceCode, criteria, DoctorSearch::List).str(), present);
}

bool clsSearch::SearchAdmittingType(const std::string& code, const std::string& present) {
    const ado::Statement statement = admissionTypeSearch(code);
    return takeOnly(data::openClient(m_session, statement, unspecifiedCursor, unspecifiedLock)) ||
           choose("Patient Classification", code, statement.str(), present);
}

bool clsSearch::SearchAutoDoctor(const std::string& criteria, const std::string& serviceCode) {
    return takeOnly(data::openClient(m_session, doctorSearch(serviceCode, criteria, DoctorSearch::OnDuty),
                                     unspecifiedCursor, unspecifiedLock));
}

bool clsSearch::takeOnly(const ado::Recordset& rows) {
    if (rows.RecordCount() != 1)
        return false;
    m_code = data::textOf(rows, "Code");
    m_description = data::textOf(rows, "Description");
    return true;
}

frmSearchNew& clsSearch::dialog() {
    return m_dialog ? *m_dialog : m_dialog.emplace(m_session);
}

bool clsSearch::choose(const std::string& caption, const std::string& criteria, const std::string& query,
                       const std::string& present) {
    frmSearchNew& asked = dialog();
    asked.SearchCaption = caption;
    asked.Criteria = criteria;
    asked.Query = query;
    asked.PresentCode = present;
    asked.showModal();
    if (!asked.Valid())
        return false;
    m_code = asked.Code();
    m_description = asked.Description();
    return true;
}

} // namespace opd::search
