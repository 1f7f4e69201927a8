#include "ado/provider_module.h"

#include "ado/error.h"
#include "base/os/library.h"

namespace opd::ado {

namespace {

constexpr const char* moduleName = "opd-provider-odbc";

Error cannotReachServers(const std::string& server, const std::string& reason) {
    return Error("\"" + server +
                     "\" is the name of a database server, and the part of this program that reaches servers " + reason,
                 "Connection", 0, "08001");
}

} // namespace

bool ModuleProvider::serves(const ConnectionString& settings) const {
    return isServer(settings.dataSource());
}

std::unique_ptr<Link> ModuleProvider::open(const ConnectionString& settings, const Link::OnWait& onWait) {
    const std::filesystem::path file = m_folder / os::libraryFileName(moduleName);
    if (std::error_code ignored; !std::filesystem::exists(file, ignored))
        throw cannotReachServers(settings.dataSource(),
                                 "(" + file.filename().string() +
                                     ") is not installed beside it. It is built where the package unixodbc-dev is.");
    try {
        return loaded().open(settings, onWait);
    } catch (const os::LibraryError& failure) {
        throw cannotReachServers(settings.dataSource(), std::string{"cannot be used. Install the packages unixodbc and "
                                                                    "tdsodbc. ("} +
                                                            failure.what() + ")");
    }
}

Provider& ModuleProvider::loaded() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_provider == nullptr) {
        const os::Library module{m_folder / os::libraryFileName(moduleName)};
        m_provider = module.function<CreateProvider>(createProviderSymbol)(m_settingOf);
    }
    return *m_provider;
}

} // namespace opd::ado
