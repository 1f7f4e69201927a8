#include "ado/provider.h"

#include "ado/error.h"
#include "base/text/text.h"

#include <algorithm>
#include <filesystem>

namespace opd::ado {

ConnectionString::ConnectionString(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find(';');
        const std::string_view part = text.substr(0, end);
        const std::size_t equals = part.find('=');
        if (equals != std::string_view::npos)
            m_values[text::upper(text::trimmed(part.substr(0, equals)))] = part.substr(equals + 1);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    }
}

std::string ConnectionString::get(std::string_view key) const {
    const auto found = m_values.find(text::upper(key));
    return found == m_values.end() ? std::string{} : found->second;
}

std::string connectionString(const LogOn& logOn) {
    const std::string identity =
        logOn.user.empty() ? ";Integrated Security=SSPI" : ";User ID=" + logOn.user + ";Password =" + logOn.password;
    return "Provider=SQLOLEDB.8" + identity + ";Persist Security Info=False;Initial Catalog=" + logOn.catalog +
           ";Data Source=" + logOn.server;
}

bool isFolder(const std::string& dataSource) {
    std::error_code ignored;
    return dataSource.find('/') != std::string::npos || std::filesystem::is_directory(dataSource, ignored);
}

bool isServer(const std::string& dataSource) {
    return !dataSource.empty() && !isFolder(dataSource);
}

void Providers::add(const std::string& kind, std::shared_ptr<Provider> provider) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto same =
        std::find_if(m_providers.begin(), m_providers.end(), [&](const auto& entry) { return entry.first == kind; });
    if (same != m_providers.end())
        same->second = std::move(provider);
    else
        m_providers.emplace_back(kind, std::move(provider));
}

std::shared_ptr<Provider> Providers::serving(const ConnectionString& settings) const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = std::find_if(m_providers.begin(), m_providers.end(),
                                    [&](const auto& entry) { return entry.second->serves(settings); });
    return found == m_providers.end() ? nullptr : found->second;
}

std::unique_ptr<Link> Providers::open(const ConnectionString& settings, const Link::OnWait& onWait) const {
    // Opened without the lock: a database that does not answer keeps nobody else waiting.
    if (const std::shared_ptr<Provider> provider = serving(settings))
        return provider->open(settings, onWait);
    throw Error("\"" + settings.dataSource() +
                    "\" is the name of a database server, and this program reaches no servers. Name the folder of a "
                    "hospital instead.",
                "Connection", 0, "08001");
}

Providers& Providers::ofProcess() {
    static Providers providers;
    return providers;
}

} // namespace opd::ado
