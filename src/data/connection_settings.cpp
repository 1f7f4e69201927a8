#include "data/connection_settings.h"

#include "base/text/text.h"

#include <stdexcept>

namespace opd::data {

bool holdsWord(const settings::Store& settings, const char* section, const char* key, const char* word) {
    return text::equalsIgnoringCase(text::trimmed(settings.get(settingsApplication, section, key)), word);
}

std::string connStr(const settings::Store& settings, int kind, const std::string& catalog) {
    const auto stored = [&](const char* key) { return settings.get(settingsApplication, connectionSection, key); };
    switch (kind) {
    case 1:
        return stored("User");
    case 2:
        return stored("Password");
    case 3:
        return stored("Server");
    case 4:
        return ado::connectionString({stored("User"), stored("Password"), stored("Server"), catalog});
    case 5:
        return {};
    default:
        throw std::out_of_range("Subscript out of range");
    }
}

void LoadConnection(Session& session) {
    ado::Connection& connection = session.connection();
    if (connection.State() > 0)
        connection.Close();
    connection.ConnectionString = connStr(session.settings, 4, "LABORATORY");
    connection.Open(connStr(session.settings, 4, "LABORATORY"));
}

} // namespace opd::data
