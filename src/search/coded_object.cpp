#include "search/coded_object.h"

#include "ado/error.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "search/statements.h"

namespace opd::search {

void CodedObject::setCode(const std::string& code) {
    if (code == m_code)
        return;
    m_code = code;
    if (text::isBlank(code)) {
        m_code.clear();
        reset();
        return;
    }
    try {
        ado::Recordset row;
        row.Open(lookup(code), m_session.connection());
        if (!row.EndOfFile()) {
            take(row);
            return;
        }
        m_code.clear();
        reset();
    } catch (const ado::Error&) { // see the comment of the declaration
    }
}

ado::Statement clsService::lookup(const std::string& code) const {
    return serviceOf(code);
}

void NamedObject::take(const ado::Recordset& row) {
    m_name = data::textOf(row, nameColumn());
}

ado::Statement clsAllergy::lookup(const std::string& code) const {
    return allergyOf(code);
}

ado::Statement clsDoctor::lookup(const std::string& code) const {
    return doctorOf(code);
}

void clsDoctor::take(const ado::Recordset& row) {
    m_lastName = data::textOf(row, "LastName");
    m_firstName = data::textOf(row, "FirstName");
    m_middleName = data::textOf(row, "MiddleName");
}

void clsDoctor::reset() {
    m_lastName.clear();
    m_firstName.clear();
    m_middleName.clear();
}

std::string clsDoctor::CompleteName() const {
    std::string complete = text::trimmed(m_lastName) + ", " + text::trimmed(m_firstName);
    if (!text::isBlank(m_middleName))
        complete += ", " + m_middleName;
    return complete;
}

} // namespace opd::search
