#pragma once

#include "registration/hospital_session.h"
#include "support/sql.h"

#include "adapters/odbc/provider.h"
#include "server/server.h"

#include <algorithm>

namespace opd::tests {

/// A desk whose statements go over the wire, and the hospital's own file past the server.
struct ServedDesk : HospitalSession {
    ServedDesk() : server(behind(folder), clock), file(globals.gConnection) {
        providers.add("server", adapters::odbc::makeOdbcProvider(
                                    [this] { return adapters::odbc::Options{.statementTimeout = patience}; }));
        globals.gConnection = std::make_shared<ado::Connection>(providers);
        logOn(std::chrono::seconds{20});
        desktop.agreesToAll = true;
    }

    /// How long the statements from here on wait for their answers: long on a machine that others use, too, and short
    /// where none comes.
    void logOn(std::chrono::seconds time) {
        patience = time;
        ado::Connection& connection = *globals.gConnection;
        connection.Close();
        connection.Open(ado::connectionString(
            {"desk", testserver::Options{}.password, "127.0.0.1," + std::to_string(server.port()), "LABORATORY"}));
        connection.setPatience(std::chrono::milliseconds{250}); // four times that for what follows the commit
    }

    std::string valueOf(const char* column, const char* table, const std::string& key, const std::string& value) const {
        ado::Recordset rows;
        rows.Open(sql(std::string{"Select "} + column + " from " + table + " where " + key + " = '" + value + "'"),
                  *file);
        return rows.EndOfFile() ? std::string{} : rows.Fields(column).asText();
    }
    std::size_t count(const char* table, const char* key, const std::string& value) const {
        ado::Recordset rows;
        rows.Open(sql(std::string{"Select "} + key + " from " + table + " where " + key + " = '" + value + "'"), *file);
        return rows.all().rows.size();
    }

    bool told(const std::string& part) const {
        return std::ranges::any_of(
            desktop.messages, [&](const ui::Message& message) { return message.text.find(part) != std::string::npos; });
    }
    std::string lastMessage() const { return desktop.messages.empty() ? "nothing" : desktop.messages.back().text; }

    static testserver::Options behind(const std::filesystem::path& hospital) {
        testserver::Options options;
        options.folder = hospital;
        return options;
    }

    std::chrono::seconds patience{};
    testserver::Server server;
    std::shared_ptr<ado::Connection> file;
};

} // namespace opd::tests
