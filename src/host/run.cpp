#include "host/commands.h"

#include "ado/connection.h"
#include "base/os/library.h"
#include "base/os/trust.h"
#include "com/class_registry.h"
#include "com/connection_object.h"
#include "com/memory.h"
#include "com/object.h"
#include "com/server.h"
#include "component/environment.h"
#include "component/init_dll.h"
#include "host/program_folder.h"
#include "script/desktop_module.h"

#include <fmt/core.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace opd::host {

namespace {

void setEnvironment(const char* variable, const std::string& value) {
    if (value.empty())
        ::unsetenv(variable);
    else
        ::setenv(variable, value.c_str(), 1);
}

std::string absoluteFile(const std::string& file) {
    return file.empty() ? file : std::filesystem::absolute(file).string();
}

void passOptions(const RunOptions& options) {
    if (options.database.find(';') != std::string::npos)
        throw std::runtime_error("The folder of the hospital must not hold a semicolon.");
    setEnvironment(environment::database, absoluteFile(options.database));
    setEnvironment(environment::settings, absoluteFile(options.settings));
    setEnvironment(environment::desktop, options.desktop);
    setEnvironment(environment::script, options.script);
    setEnvironment(environment::wholeScript, "1"); // this host shows no search again that the clerk has closed
    setEnvironment(environment::trace, absoluteFile(options.trace));
    setEnvironment(environment::journal, absoluteFile(options.journal));
    setEnvironment(environment::now, options.now);
    setEnvironment(environment::cameraFile, absoluteFile(options.cameraFile));
}

void check(com::HResult result, const char* step) {
    if (com::succeeded(result))
        return;
    const std::string& reason = com::lastErrorText();
    throw std::runtime_error(
        reason.empty() ? fmt::format("{} failed ({:#010x}).", step, static_cast<std::uint32_t>(result)) : reason);
}

/// What the class registry knows; a damaged entry counts as none, and the user is told.
std::optional<com::ClassEntry> knownClass(const char* programId) {
    try {
        return com::ClassRegistry{}.find(programId);
    } catch (const com::Error& damaged) {
        fmt::print(stderr, "opd-desk: {} It is registered anew.\n", damaged.what());
        return std::nullopt;
    }
}

/// Enters the component that lies beside this program into the class registry, unless it stands there already: a
/// program runs with the components it came with. Where none lies beside it, the registered one serves.
void ensureRegistered(const char* programId, const char* libraryName) {
    const std::filesystem::path file = programFolder() / os::libraryFileName(libraryName);
    const std::optional<com::ClassEntry> known = knownClass(programId);
    std::error_code missing;
    if (known &&
        (!std::filesystem::exists(file, missing) || std::filesystem::equivalent(file, known->library, missing)))
        return;
    const os::Library library{os::trustedLibrary(file)};
    com::setLastErrorText({});
    check(library.function<com::RegisterServerExport>(com::exportedNames.registerServer)(), "DllRegisterServer");
}

void refuseMissingServer(IInitDLL& component) {
    constexpr std::int32_t serverKind = 3;
    const char* noDatabase = "";
    char* server = nullptr;
    check(component.connStr(&serverKind, &noDatabase, &server), "connStr");
    const bool missing = *server == '\0';
    com::freeText(server);
    if (missing)
        throw std::runtime_error(
            "No database is configured. Store one with \"opd-desk configure --server NAME|FOLDER\" "
            "or name a hospital's folder with \"opd-desk run --database FOLDER\".");
}

std::string userOf(const RunOptions& options) {
    const char* login = std::getenv("USER");
    return !options.user.empty() ? options.user : login != nullptr ? login : "OPD";
}

void playHost(const RunOptions& options) {
    passOptions(options);
    ensureRegistered(initDllProgramId, "opd-registration");
    ensureRegistered("Trellicode.clsCodeSearch", "opd-codesearch");

    const auto component = com::createInstanceOf<IInitDLL>(initDllProgramId, iidInitDLL);
    refuseMissingServer(*component.get());
    check(component->UserID(userOf(options).c_str()), "UserID");
    check(component->SearchCriteria(options.search.c_str()), "SearchCriteria");
    const auto connection = com::makeConnectionObject(std::make_shared<ado::Connection>());
    check(component->InitDLLConnection(connection.get()), "InitDLLConnection");

    com::HResult outcome = com::ok;
    while (outcome == com::ok) {
        outcome = component->InitSetup();
        check(outcome, "InitSetup");
    }
}

bool hasDisplay() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"})
        if (const char* value = std::getenv(variable); value != nullptr && *value != '\0')
            return true;
    return false;
}

/// Shows a failure to a clerk who started the desk from a menu and sees no terminal. Says nothing where that is not
/// possible: the failure goes to standard error in any case.
void showFailure(const std::string& desktopName, const std::string& reason) {
    try {
        const os::Library module{os::trustedLibrary(ui::desktopModule(programFolder(), desktopName))};
        const auto create = module.function<std::remove_pointer_t<ui::CreateDesktop>>(ui::createDesktopSymbol);
        if (ui::Desktop* const desktop = create(nullptr, nullptr)) // never taken down, as the component's own
            desktop->ask({.text = reason, .icon = ui::Icon::Critical});
    } catch (const std::exception&) {
        return;
    }
}

} // namespace

bool hasDesktop(const std::string& name) {
    return name == "scripted" || !ui::desktopModule(programFolder(), name).empty();
}

void run(const RunOptions& options) {
    try {
        playHost(options);
    } catch (const std::exception& failure) {
        if (options.script.empty() && hasDisplay())
            showFailure(options.desktop, failure.what());
        throw;
    }
}

} // namespace opd::host
