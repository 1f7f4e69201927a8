#include "adapters/odbc/driver_string.h"

#include "base/text/text.h"

namespace opd::adapters::odbc {

namespace {

/// The two families of drivers write some things differently.
class Writer {
  public:
    explicit Writer(const std::string& driver) : m_freeTds(text::upper(driver).find("TDS") != std::string::npos) {}

    bool isFreeTds() const { return m_freeTds; }

    /// Braces keep what stands in a value from ending it. A closing one is written twice, but not for FreeTDS, which
    /// takes all up to "};". Drivers that know no braces see none in a plain value.
    void add(const std::string& key, const std::string& value) {
        const bool isPlain = value.find_first_of(";{}[]()=,?*!@ ") == std::string::npos;
        const std::string inBraces = m_freeTds ? value : text::replaced(value, "}", "}}");
        m_text += key + "=" + (isPlain ? value : "{" + inBraces + "}") + ";";
    }

    const std::string& text() const { return m_text; }

  private:
    bool m_freeTds;
    std::string m_text;
};

void addServer(Writer& to, const std::string& dataSource) {
    const std::string place = dataSource.starts_with("tcp:") ? dataSource.substr(4) : dataSource;
    const std::size_t comma = place.rfind(',');
    to.add("Server", text::trimmed(to.isFreeTds() ? place.substr(0, comma) : place));
    if (to.isFreeTds() && comma != std::string::npos)
        to.add("Port", text::trimmed(place.substr(comma + 1)));
}

void addIdentity(Writer& to, const ado::ConnectionString& settings) {
    const std::string user = settings.get("User ID");
    if (user.empty())
        return to.add("Trusted_Connection", "Yes");
    to.add("UID", user);
    to.add("PWD", settings.get("Password"));
}

} // namespace

std::string driverString(const ado::ConnectionString& settings, const Options& options) {
    Writer writer(options.driver);
    writer.add("DRIVER", options.driver);
    addServer(writer, settings.dataSource());
    addIdentity(writer, settings);
    writer.add("Database", settings.get("Initial Catalog"));
    writer.add("APP", "OPD Registration");
    writer.add("Language", "us_english");
    if (writer.isFreeTds()) {
        writer.add("TDS_Version", "7.4");
        writer.add("ClientCharset", "UTF-8");
        // For what is no statement: without it the end of a transaction waits for its answer for ever.
        writer.add("Timeout", std::to_string(options.statementTimeout.count()));
    }
    if (options.encryptionRequired)
        writer.add(writer.isFreeTds() ? "Encryption" : "Encrypt", writer.isFreeTds() ? "require" : "yes");
    return writer.text();
}

} // namespace opd::adapters::odbc
