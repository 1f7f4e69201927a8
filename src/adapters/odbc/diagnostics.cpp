#include "adapters/odbc/diagnostics.h"

#include "adapters/odbc/wide_text.h"

#include <array>
#include <optional>

namespace opd::adapters::odbc {

namespace {

struct Diagnostic {
    std::string sqlState;
    long number = 0;
    std::string text;
};

/// "[FreeTDS][SQL Server]Login failed." is what the server said of the login. A message of the server may begin with a
/// bracket itself, so no more is taken away than drivers put there.
std::string withoutPrefixes(std::string text) {
    constexpr std::string_view ofServer = "[SQL Server]";
    if (const std::size_t found = text.find(ofServer); text.starts_with('[') && found != std::string::npos)
        return text.substr(found + ofServer.size());
    while (text.starts_with('[') && text.find(']') != std::string::npos)
        text.erase(0, text.find(']') + 1);
    return text;
}

std::optional<Diagnostic> diagnosticOf(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 4096> message{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLGetDiagRecW(kind, handle, record, state.data(), &number, message.data(),
                                            static_cast<SQLSMALLINT>(message.size()), &length);
    if (!SQL_SUCCEEDED(result))
        return std::nullopt;
    return Diagnostic{fromWide(state.data()), number, withoutPrefixes(fromWide(message.data()))};
}

/// Numbers from 20000 on are those of the driver's own library; what the server says tells more.
bool isOfServer(const Diagnostic& diagnostic) {
    return diagnostic.number > 0 && (diagnostic.number < 20000 || diagnostic.number >= 30000);
}

bool isFailure(const Diagnostic& diagnostic) {
    return !diagnostic.sqlState.starts_with("01") && !diagnostic.sqlState.starts_with("00");
}

int weight(const Diagnostic& diagnostic) {
    return (isFailure(diagnostic) ? 4 : 0) + (isOfServer(diagnostic) ? 2 : 0) + (diagnostic.number > 0 ? 1 : 0);
}

} // namespace

ado::Error errorOf(SQLSMALLINT kind, SQLHANDLE handle) {
    Diagnostic best{"HY000", 0, "The database driver failed without saying why."};
    int heaviest = -1;
    for (SQLSMALLINT record = 1;; ++record) {
        std::optional<Diagnostic> next = diagnosticOf(kind, handle, record);
        if (!next)
            break;
        if (weight(*next) <= heaviest)
            continue;
        heaviest = weight(*next);
        best = std::move(*next);
    }
    return ado::Error(best.text, errorSource, best.number, best.sqlState);
}

} // namespace opd::adapters::odbc
