#include "adapters/odbc/session.h"

#include "adapters/odbc/diagnostics.h"
#include "adapters/odbc/wide_text.h"

namespace opd::adapters::odbc {

namespace {

void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA)
        throw errorOf(kind, handle);
}

/// An attribute that is a number travels in the place of a pointer.
SQLPOINTER number(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value); // NOLINT(performance-no-int-to-ptr)
}

Handle<SQL_HANDLE_ENV> newEnvironment() {
    SQLHANDLE environment = SQL_NULL_HANDLE;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment)))
        throw ado::Error("The driver manager for database servers cannot be used.", errorSource, 0, "HY001");
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, number(SQL_OV_ODBC3), 0);
    return Handle<SQL_HANDLE_ENV>{environment};
}

template <SQLSMALLINT kind, SQLSMALLINT kindAbove> Handle<kind> newHandle(SQLHANDLE above) {
    SQLHANDLE handle = SQL_NULL_HANDLE;
    check(SQLAllocHandle(kind, above, &handle), kindAbove, above);
    return Handle<kind>{handle};
}

/// What a login that failed means to who reads it.
ado::Error loginError(const ado::Error& error, const ado::ConnectionString& settings, const Options& options) {
    const auto told = [&](const std::string& text) {
        return ado::Error(text, error.source(), error.number(),
                          error.sqlState() == "01000" ? "IM003" : error.sqlState());
    };
    if (error.sqlState() == "IM002" || error.sqlState() == "IM003" ||
        std::string{error.what()}.find("Can't open lib") != std::string::npos)
        return told("The driver \"" + options.driver + "\" for database servers is not installed on this machine. " +
                    (options.driver == Options{}.driver ? "Install the package tdsodbc."
                                                        : "\"odbcinst -q -d\" lists those that are."));
    if (error.sqlState().starts_with("08") || error.sqlState().starts_with("HYT") || error.number() == 0)
        return told("The database server \"" + settings.dataSource() + "\" cannot be reached" +
                    (options.encryptionRequired ? " with encryption, as the settings require" : "") + ". (" +
                    error.what() + ")");
    return error;
}

} // namespace

Session::Session(const ado::ConnectionString& settings, const Options& options)
    : m_environment(newEnvironment()), m_connection(newHandle<SQL_HANDLE_DBC, SQL_HANDLE_ENV>(m_environment.get())) {
    SQLSetConnectAttrW(handle(), SQL_ATTR_LOGIN_TIMEOUT, number(static_cast<SQLULEN>(options.loginTimeout.count())), 0);
    WideText text = toWide(driverString(settings, options));
    const SQLRETURN result = SQLDriverConnectW(handle(), nullptr, text.data(), static_cast<SQLSMALLINT>(text.size()),
                                               nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result))
        throw loginError(errorOf(SQL_HANDLE_DBC, handle()), settings, options);
}

Session::~Session() {
    SQLDisconnect(handle());
}

bool Session::isDead() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN result = SQLGetConnectAttrW(handle(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
    return SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE;
}

void Session::setAutoCommit(bool on) {
    check(SQLSetConnectAttrW(handle(), SQL_ATTR_AUTOCOMMIT, number(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0),
          SQL_HANDLE_DBC, handle());
}

void Session::end(SQLSMALLINT how) {
    check(SQLEndTran(SQL_HANDLE_DBC, handle(), how), SQL_HANDLE_DBC, handle());
}

Query::Query(std::shared_ptr<Session> session, std::chrono::seconds timeout)
    : m_session(std::move(session)), m_statement(newHandle<SQL_HANDLE_STMT, SQL_HANDLE_DBC>(m_session->handle())) {
    SQLSetStmtAttrW(handle(), SQL_ATTR_QUERY_TIMEOUT, number(static_cast<SQLULEN>(timeout.count())), 0);
    SQLSetStmtAttrW(handle(), SQL_ATTR_NOSCAN, number(SQL_NOSCAN_ON), 0); // braces in a value are characters
}

} // namespace opd::adapters::odbc
