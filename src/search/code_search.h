#pragma once

#include "search/search_new.h"
#include "session/session.h"

#include <optional>
#include <string>

namespace opd::search {

/// Resolves a typed code to exactly one row of a reference file; a code that matches none or several leads to the code
/// search dialog. A failed search leaves the values of the last successful one. Each search throws ado::Error.
class clsSearch {
  public:
    explicit clsSearch(Session& session) : m_session(session) {}

    /// The dialog opens on the row of the code `present`, where it has one.
    bool SearchBarangay(const std::string& code, const std::string& present = {});
    bool SearchDoctor(const std::string& criteria, const std::string& serviceCode, const std::string& present = {});
    bool SearchAdmittingType(const std::string& code, const std::string& present = {});

    /// The one doctor that is on duty for a service; never shows a window.
    bool SearchAutoDoctor(const std::string& criteria, const std::string& serviceCode);

    const std::string& Code() const { return m_code; }
    const std::string& Description() const { return m_description; }

    /// Made when it is first asked for: most codes are exact.
    frmSearchNew& dialog();

  private:
    bool takeOnly(const ado::Recordset& rows);
    bool choose(const std::string& caption, const std::string& criteria, const std::string& query,
                const std::string& present);

    Session& m_session;
    std::optional<frmSearchNew> m_dialog;
    std::string m_code;
    std::string m_description;
};

} // namespace opd::search
