#include "registration/load/account_loader.h"

#include "data/rows.h"

namespace opd::registration {

using ado::Statement;

namespace {

/// The text of one column where the key has a row. No row has a key that cannot be asked for.
template <std::size_t Length>
std::string textOfKey(const Session& session, const char (&query)[Length], const std::string& key, const char* column) {
    if (!ado::isSendable(key))
        return {};
    const ado::Recordset row = data::openClient(session, Statement(query).value(key).text("'"));
    return row.EndOfFile() ? std::string{} : data::textOf(row, column);
}

} // namespace

void LoadPayCode(FormContext& form) {
    ado::Recordset codes = data::openClient(
        form.session, Statement("Select PaycodeID, Paycode from Build_File..tbcoPaycode where Status ='A'"));
    for (; !codes.EndOfFile(); codes.MoveNext()) {
        form.fields.personal.cmbPaycodeID.add(data::textOf(codes, "PaycodeID"));
        form.fields.personal.cmbPaycode.add(data::textOf(codes, "PayCode"));
    }
}

std::string GetPayCode(const Session& session, const std::string& id) {
    return textOfKey(session, "Select * from Build_File..tbCoPayCode where PayCodeID = '", id, "PayCode");
}

std::string GetAdmissionType(const Session& session, const std::string& id) {
    return textOfKey(session, "Select * from Build_File..tbCoAdmissionType where AdmissionTypeID = '", id,
                     "AdmissionType");
}

void LoadAccountClass(FormContext& form, const std::string& account) {
    if (!ado::isSendable(account))
        return;
    const ado::Recordset company = data::openClient(
        form.session, Statement("Select * From Build_File..tbCoCompany Where AccountNum = '").value(account).text("'"));
    if (!company.EndOfFile())
        form.record.CompanyClass = data::textOf(company, "Class");
}

} // namespace opd::registration
