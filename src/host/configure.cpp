#include "host/commands.h"

#include "adapters/settings/ini_store.h"
#include "ado/provider_module.h"
#include "component/init_dll.h"

#include <fmt/core.h>

#include <charconv>
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

namespace {

/// "NAME,PORT" needs a port.
void refuseOddPort(const std::string& server) {
    const std::size_t comma = server.rfind(',');
    if (comma == std::string::npos || ado::isFolder(server))
        return;
    int port = 0;
    const char* const end = server.data() + server.size();
    const auto read = std::from_chars(server.data() + comma + 1, end, port);
    if (comma == 0 || read.ec != std::errc{} || read.ptr != end || port < 1 || port > 65535)
        throw std::runtime_error(fmt::format("\"{}\" is no NAME,PORT of a database server.", server));
}

void addServerSettings(const ConfigureOptions& options, std::vector<settings::IniStore::Value>& values) {
    namespace key = ado::server_setting;
    const auto add = [&](const char* name, const std::optional<std::string>& text) {
        if (text)
            values.push_back({serverSettingsSection, name, *text});
    };
    const auto seconds = [](const std::optional<int>& number) {
        return number ? std::optional{std::to_string(*number)} : std::nullopt;
    };
    add(key::driver, options.driver);
    add(key::encrypt, options.encrypt);
    add(key::loginTimeout, seconds(options.loginTimeout));
    add(key::statementTimeout, seconds(options.statementTimeout));
}

} // namespace

void configure(const ConfigureOptions& options) {
    // A folder is found from wherever the desk is started.
    const std::string server =
        ado::isFolder(options.server) ? std::filesystem::absolute(options.server).string() : options.server;
    const std::string password = options.passwordFromInput ? passwordFromInput() : std::string{};
    refuseOddPort(server);
    refuseSemicolon("server", server);
    refuseSemicolon("driver", options.driver.value_or(std::string{}));
    refuseSemicolon("user", options.user);
    refuseSemicolon("password", password);

    std::vector<settings::IniStore::Value> values{{connectionSettingsSection, "User", options.user},
                                                  {connectionSettingsSection, "Password", password},
                                                  {connectionSettingsSection, "Server", server}};
    addServerSettings(options, values);
    if (!options.pictures.empty())
        values.push_back({pictureSettingsSection, "Folder", std::filesystem::absolute(options.pictures).string()});
    if (!options.quickEntry.empty())
        values.push_back({entrySettingsSection, "QuickEntry", options.quickEntry});
    if (!options.watchOtherDesks.empty())
        values.push_back({savingSettingsSection, "WatchOtherDesks", options.watchOtherDesks});
    if (!options.oneVisitADay.empty())
        values.push_back({savingSettingsSection, "OneVisitADay", options.oneVisitADay});
    if (!options.carrySearch.empty())
        values.push_back({searchingSettingsSection, "CarrySexAndBirthDate", options.carrySearch});
    settings::IniStore store = options.settings.empty() ? settings::IniStore{} : settings::IniStore{options.settings};
    store.set(connectionSettingsApplication, values);
}

} // namespace opd::host
