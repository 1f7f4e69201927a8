#include "registration/accounts/account_records.h"

#include "data/rows.h"
#include "registration/statements/queries.h"

namespace opd::registration {

namespace {

/// The text of one column where the key has a row. No row has a key that cannot be asked for.
std::string textOfKey(const Session& session, ado::Statement (*query)(const std::string&), const std::string& key,
                      const char* column) {
    if (!ado::isSendable(key))
        return {};
    const ado::Recordset row = data::openClient(session, query(key));
    return row.EndOfFile() ? std::string{} : data::textOf(row, column);
}

} // namespace

void LoadPayCode(const Session& session, PersonalTab& personal) {
    ado::Recordset codes = data::openClient(session, statements::payCodes());
    for (; !codes.EndOfFile(); codes.MoveNext()) {
        personal.cmbPaycodeID.add(data::textOf(codes, "PaycodeID"));
        personal.cmbPaycode.add(data::textOf(codes, "PayCode"));
    }
}

std::string GetPayCode(const Session& session, const std::string& id) {
    return textOfKey(session, &statements::payCode, id, "PayCode");
}

std::string GetAdmissionType(const Session& session, const std::string& id) {
    return textOfKey(session, &statements::admissionType, id, "AdmissionType");
}

void LoadAccountClass(const Session& session, Record& record, const std::string& account) {
    if (!ado::isSendable(account))
        return;
    const ado::Recordset company = data::openClient(session, statements::companyAccount(account));
    if (!company.EndOfFile())
        record.CompanyClass = data::textOf(company, "Class");
}

} // namespace opd::registration
