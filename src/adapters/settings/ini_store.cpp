#include "adapters/settings/ini_store.h"

#include "base/files/ini_file.h"
#include "base/os/safe_file.h"

namespace opd::settings {

std::string IniStore::get(const std::string& application, const std::string& section, const std::string& key) const {
    os::refuseUnlessPrivate(fileOf(application));
    return files::IniFile{fileOf(application)}.get(section, key);
}

void IniStore::set(const std::string& application, const std::vector<Value>& values) {
    const os::FileTurn turn(fileOf(application));
    files::IniFile file{fileOf(application)};
    for (const Value& value : values)
        file.set(value.section, value.key, value.text);
    file.save();
}

std::filesystem::path IniStore::fileOf(const std::string& application) const {
    return m_file.empty() ? os::configFolder() / (application + ".ini") : m_file;
}

std::string FixedStore::get(const std::string&, const std::string&, const std::string& key) const {
    return key == "Server" ? m_server : std::string{};
}

} // namespace opd::settings
