#include "registration/load/account_loader.h"

#include "data/rows.h"

namespace opd::registration {

using data::Statement;

namespace {

std::string firstText(const Session& session, const Statement& statement, const char* column) {
    const ado::Recordset row = data::openClient(session, statement);
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
    return firstText(
        session, Statement("Select * from Build_File..tbCoPayCode where PayCodeID = '").value(id).text("'"), "PayCode");
}

std::string GetAdmissionType(const Session& session, const std::string& id) {
    return firstText(
        session, Statement("Select * from Build_File..tbCoAdmissionType where AdmissionTypeID = '").value(id).text("'"),
        "AdmissionType");
}

void LoadAccountClass(FormContext& form, const std::string& account) {
    const ado::Recordset company = data::openClient(
        form.session, Statement("Select * From Build_File..tbCoCompany Where AccountNum = '").value(account).text("'"));
    if (!company.EndOfFile())
        form.record.CompanyClass = data::textOf(company, "Class");
}

} // namespace opd::registration
