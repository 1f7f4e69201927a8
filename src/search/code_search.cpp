#include "search/code_search.h"

#include "data/rows.h"

namespace opd::search {

namespace {

using data::Statement;

constexpr auto unspecifiedCursor = ado::CursorType::Unspecified;
constexpr auto unspecifiedLock = ado::LockType::Unspecified;

/// Mode "7" looks one doctor up, "6" lists them, "5" gives those on duty.
Statement doctorStatement(const std::string& serviceCode, const std::string& criteria, const std::string& mode) {
    return Statement("BUILD_FILE..sp_Bui_Search_Doctor '")
        .value(serviceCode)
        .text("', '")
        .value(criteria)
        .text("','','")
        .value(mode)
        .text("'");
}

} // namespace

bool clsSearch::SearchBarangay(const std::string& code, const std::string& present) {
    const ado::Recordset rows =
        data::openClient(m_session, Statement("Patient_Data..sp_Adm_SearchBarangay '").value(code).text("'"),
                         unspecifiedCursor, unspecifiedLock);
    if (rows.RecordCount() == 0) {
        m_session.desktop.ask({.text = "Invalid Code!", .icon = ui::Icon::Critical});
        return false;
    }
    return takeOnly(rows) || choose("Barangay", code, "Patient_Data..sp_Adm_SearchBarangay '##'", present);
}

bool clsSearch::SearchDoctor(const std::string& criteria, const std::string& serviceCode, const std::string& present) {
    return takeOnly(data::openClient(m_session, doctorStatement(serviceCode, criteria, "7"), unspecifiedCursor,
                                     unspecifiedLock)) ||
           choose("Doctor", criteria, doctorStatement(serviceCode, criteria, "6").str(), present);
}

bool clsSearch::SearchAdmittingType(const std::string& code, const std::string& present) {
    const Statement statement = Statement("PATIENT_DATA..sp_Adm_SearchAdmissionType '").value(code).text("'");
    return takeOnly(data::openClient(m_session, statement, unspecifiedCursor, unspecifiedLock)) ||
           choose("Patient Classification", code, statement.str(), present);
}

bool clsSearch::SearchAutoDoctor(const std::string& criteria, const std::string& serviceCode) {
    return takeOnly(
        data::openClient(m_session, doctorStatement(serviceCode, criteria, "5"), unspecifiedCursor, unspecifiedLock));
}

bool clsSearch::takeOnly(const ado::Recordset& rows) {
    if (rows.RecordCount() != 1)
        return false;
    m_code = data::textOf(rows, "Code");
    m_description = data::textOf(rows, "Description");
    return true;
}

bool clsSearch::choose(const std::string& caption, const std::string& criteria, const std::string& query,
                       const std::string& present) {
    m_dialog.SearchCaption = caption;
    m_dialog.Criteria = criteria;
    m_dialog.Query = query;
    m_dialog.PresentCode = present;
    m_dialog.showModal();
    if (!m_dialog.Valid())
        return false;
    m_code = m_dialog.Code();
    m_description = m_dialog.Description();
    return true;
}

} // namespace opd::search
