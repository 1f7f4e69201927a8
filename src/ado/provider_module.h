#pragma once

#include "ado/provider.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>

namespace opd::ado {

/// Answers a setting of the workstation's user that concerns servers, read afresh; empty where none is stored.
using SettingOf = std::function<std::string(const std::string& key)>;

/// The keys of those settings.
namespace server_setting {
inline constexpr const char* driver = "Driver";                     ///< name or file of the ODBC driver
inline constexpr const char* encrypt = "Encrypt";                   ///< "required", or empty: as the server wishes
inline constexpr const char* loginTimeout = "LoginTimeout";         ///< seconds
inline constexpr const char* statementTimeout = "StatementTimeout"; ///< seconds
inline constexpr const char* encryptRequired = "required";          ///< what "Encrypt" may hold
} // namespace server_setting

/// The provider of database servers, which lies in a library of its own: it is opened when the first server is asked
/// for, so that everything else runs without the libraries that it needs.
class ModuleProvider final : public Provider {
  public:
    /// `folder` is where the library lies.
    ModuleProvider(std::filesystem::path folder, SettingOf settingOf)
        : m_folder(std::move(folder)), m_settingOf(std::move(settingOf)) {}

    /// Every data source that is no folder.
    bool serves(const ConnectionString& settings) const override;

    /// Throws Error, which names the package to install where a part is missing.
    std::unique_ptr<Link> open(const ConnectionString& settings, const Link::OnWait& onWait) override;

  private:
    Provider& loaded();

    std::filesystem::path m_folder;
    SettingOf m_settingOf;
    std::mutex m_mutex;
    Provider* m_provider = nullptr; ///< lives as long as the process, as its library does
};

inline constexpr const char* createProviderSymbol = "opdCreateProvider";

using CreateProvider = Provider*(const SettingOf& settingOf);

} // namespace opd::ado

extern "C" {

/// What a library with a provider offers: makes the provider, which lives as long as the process.
opd::ado::Provider* opdCreateProvider(const opd::ado::SettingOf& settingOf);
}
