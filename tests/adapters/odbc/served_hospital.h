#pragma once

#include "adapters/odbc/provider.h"
#include "adapters/sqlite/hospital.h"
#include "server/server.h"

namespace opd::tests {

/// A hospital behind a server of the wire protocol, reached through the real driver.
class ServedHospital final : public Hospital {
  public:
    ServedHospital() : m_server(behind(m_embedded), m_embedded.clock()) {
        m_providers.add("server", adapters::odbc::makeOdbcProvider([this] { return options; }));
    }

    std::unique_ptr<ado::Connection> connect() override { return connect(testserver::Options{}.password); }

    std::unique_ptr<ado::Connection> connect(const std::string& password) {
        auto connection = std::make_unique<ado::Connection>(m_providers);
        connection->Open(ado::connectionString(
            {testserver::Options{}.user, password, "127.0.0.1," + std::to_string(m_server.port()), "LABORATORY"}));
        return connection;
    }

    void setClock(const DateTime& moment) override { m_embedded.setClock(moment); }

    testserver::Server& server() { return m_server; }

    adapters::odbc::Options options; ///< of the logins to come

  private:
    static testserver::Options behind(const EmbeddedHospital& hospital) {
        testserver::Options options;
        options.folder = hospital.folder();
        return options;
    }

    EmbeddedHospital m_embedded;
    testserver::Server m_server;
    ado::Providers m_providers;
};

} // namespace opd::tests
