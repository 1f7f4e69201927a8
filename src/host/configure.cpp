#include "host/commands.h"

#include "adapters/settings/ini_store.h"
#include "ado/provider.h"
#include "component/init_dll.h"

#include <fmt/core.h>

#include <iostream>
#include <stdexcept>

namespace opd::host {

std::string passwordFromInput() {
    std::string line;
    if (!std::getline(std::cin, line))
        throw std::runtime_error("There is no password on standard input.");
    if (line.ends_with('\r'))
        line.pop_back();
    return line;
}

void refuseSemicolon(const char* what, const std::string& text) {
    if (text.find(';') != std::string::npos)
        throw std::runtime_error(fmt::format("The {} must not hold a semicolon.", what));
}

void configure(const ConfigureOptions& options) {
    // A folder is found from wherever the desk is started.
    const std::string server =
        ado::isFolder(options.server) ? std::filesystem::absolute(options.server).string() : options.server;
    const std::string password = options.passwordFromInput ? passwordFromInput() : std::string{};
    refuseSemicolon("server", server);
    refuseSemicolon("user", options.user);
    refuseSemicolon("password", password);

    std::vector<settings::IniStore::Value> values{{connectionSettingsSection, "User", options.user},
                                                  {connectionSettingsSection, "Password", password},
                                                  {connectionSettingsSection, "Server", server}};
    if (!options.pictures.empty())
        values.push_back({pictureSettingsSection, "Folder", std::filesystem::absolute(options.pictures).string()});
    if (!options.watchOtherDesks.empty())
        values.push_back({savingSettingsSection, "WatchOtherDesks", options.watchOtherDesks});
    settings::IniStore store = options.settings.empty() ? settings::IniStore{} : settings::IniStore{options.settings};
    store.set(connectionSettingsApplication, values);
}

} // namespace opd::host
