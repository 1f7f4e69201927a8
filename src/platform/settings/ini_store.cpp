#include "platform/settings/ini_store.h"

#include "platform/settings/ini_file.h"
#include "platform/settings/safe_file.h"

namespace opd::settings {

std::string IniStore::get(const std::string& application, const std::string& section, const std::string& key) const {
    refuseUnlessPrivate(fileOf(application));
    return IniFile{fileOf(application)}.get(section, key);
}

void IniStore::set(const std::string& application, const std::vector<Value>& values) {
    IniFile file{fileOf(application)};
    for (const Value& value : values)
        file.set(value.section, value.key, value.text);
    file.save();
}

std::filesystem::path IniStore::fileOf(const std::string& application) const {
    return m_file.empty() ? configFolder() / (application + ".ini") : m_file;
}

std::string FixedStore::get(const std::string&, const std::string&, const std::string& key) const {
    return key == "Server" ? m_server : std::string{};
}

} // namespace opd::settings
