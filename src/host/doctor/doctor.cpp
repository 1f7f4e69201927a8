#include "adapters/settings/ini_store.h"
#include "ado/provider.h"
#include "component/init_dll.h"
#include "host/commands.h"
#include "host/doctor/checks.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

namespace opd::host {

namespace {

std::unique_ptr<settings::Store> storeOf(const AdministerOptions& options) {
    if (!options.database.empty())
        return std::make_unique<settings::FixedStore>(std::filesystem::absolute(options.database).string());
    return std::make_unique<settings::IniStore>(options.settings);
}

std::filesystem::path fileOf(const settings::Store& store) {
    const auto* const file = dynamic_cast<const settings::IniStore*>(&store);
    return file == nullptr ? std::filesystem::path{} : file->fileOf(connectionSettingsApplication);
}

/// Empty where the settings cannot be read, which a check of its own says.
std::string serverOf(const settings::Store& store) {
    try {
        return store.get(connectionSettingsApplication, connectionSettingsSection, "Server");
    } catch (const std::exception&) {
        return {};
    }
}

/// A check that fails in a way of its own is a finding, and the others go on.
Findings findingsOf(const char* what, const std::function<Findings()>& check) {
    try {
        return check();
    } catch (const std::exception& failure) {
        return {wrong(what, failure.what(), {})};
    }
}

void print(const Finding& finding) {
    constexpr const char* words[] = {"right", "none", "WRONG"};
    fmt::print("{:<6}{:<16}{}\n", words[static_cast<int>(finding.state)], finding.what, finding.text);
    if (!finding.mend.empty())
        fmt::print("{:<22}$ {}\n", "", finding.mend);
}

/// Printed at once: a toolkit or driver that ends the program takes no finding with it.
void add(Findings& all, const char* what, const std::function<Findings()>& check) {
    for (Finding& finding : findingsOf(what, check)) {
        print(finding);
        all.push_back(std::move(finding));
    }
    std::fflush(stdout);
}

Findings examine(const AdministerOptions& options) {
    const std::unique_ptr<settings::Store> store = storeOf(options);
    const Desk desk{*store, fileOf(*store), serverOf(*store),
                    options.settings.empty() ? std::string{} : " --settings " + shellWord(options.settings)};
    Findings all;
    add(all, "settings", [&] { return checkSettings(desk); });
    add(all, "program", [] { return checkProgram(); });
    add(all, "report file", [] { return checkReports(); });
    if (!desk.server.empty()) { // without one the settings are to be mended first
        add(all, "database", [&] { return ado::isFolder(desk.server) ? checkHospital(desk) : checkServer(desk); });
        add(all, "picture folder", [&] { return checkPictures(desk); });
    }
    add(all, "workstation", [] { return checkWorkstation(); });
    return all;
}

} // namespace

std::string shellWord(const std::string& word) {
    constexpr const char* plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./,:=@+";
    if (!word.empty() && word.find_first_not_of(plain) == std::string::npos)
        return word;
    std::string quoted = "'";
    for (const char character : word)
        quoted += character == '\'' ? std::string{"'\\''"} : std::string(1, character);
    return quoted + "'";
}

void doctor(const AdministerOptions& options) {
    const Findings all = examine(options);
    const auto faults =
        std::count_if(all.begin(), all.end(), [](const Finding& each) { return each.state == Finding::State::Wrong; });
    if (faults > 0)
        throw std::runtime_error(faults == 1 ? "One thing is wrong." : fmt::format("{} things are wrong.", faults));
}

} // namespace opd::host
