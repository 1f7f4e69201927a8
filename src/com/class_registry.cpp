#include "com/class_registry.h"

#include "base/files/ini_file.h"
#include "base/os/library.h"
#include "base/os/safe_file.h"
#include "base/os/trust.h"
#include "com/guid.h"
#include "com/object.h"
#include "com/server.h"

#include <cstdlib>

namespace opd::com {

namespace {

constexpr const char* classKey = "Class";
constexpr const char* libraryKey = "Library";

std::filesystem::path registryFile() {
    const char* named = std::getenv("OPD_CLASS_REGISTRY");
    return named != nullptr && *named != '\0' ? std::filesystem::path{named}
                                              : os::dataFolder() / "opd-registration" / "classes.ini";
}

void throwUnlessSucceeded(HResult result, const std::string& programId, const char* step) {
    if (succeeded(result))
        return;
    const std::string& reason = lastErrorText();
    throw Error(result, "The component \"" + programId + "\" " + step + (reason.empty() ? "." : ": " + reason));
}

} // namespace

ClassRegistry::ClassRegistry() : m_file(registryFile()) {}

std::optional<ClassEntry> ClassRegistry::find(const std::string& programId) const {
    const files::IniFile file{m_file};
    if (!file.hasSection(programId))
        return std::nullopt;
    const std::optional<Guid> classId = parseGuid(file.get(programId, classKey));
    const std::string library = file.get(programId, libraryKey);
    if (!classId || library.empty())
        throw Error(errorClassNotRegistered,
                    "The class registry \"" + m_file.string() + "\" holds a damaged entry for \"" + programId + "\".");
    return ClassEntry{programId, *classId, library};
}

void ClassRegistry::add(const ClassEntry& entry) const {
    const os::FileTurn turn(m_file);
    files::IniFile file{m_file};
    file.set(entry.programId, classKey, toText(entry.classId));
    file.set(entry.programId, libraryKey, entry.library.string());
    file.save();
}

void ClassRegistry::remove(const std::string& programId) const {
    const os::FileTurn turn(m_file);
    files::IniFile file{m_file};
    if (!file.hasSection(programId))
        return;
    file.removeSection(programId);
    file.save();
}

void registerClass(const ClassEntry& entry) {
    ClassRegistry{}.add(entry);
}

void unregisterClass(const std::string& programId) {
    ClassRegistry{}.remove(programId);
}

namespace {

GetClassObjectExport* exportedBy(const ClassEntry& entry) try {
    const os::Library library{os::trustedLibrary(entry.library)};
    return library.function<GetClassObjectExport>(exportedNames.getClassObject);
} catch (const os::LibraryError& error) {
    throw Error(errorFail, error.what());
}

} // namespace

Ref<IUnknown> createInstance(const std::string& programId, const Guid& interfaceId) {
    const std::optional<ClassEntry> entry = ClassRegistry{}.find(programId);
    if (!entry)
        throw Error(errorClassNotRegistered, "The component \"" + programId + "\" is not registered on this machine.");
    const auto getClassObject = exportedBy(*entry);

    setLastErrorText({});
    void* found = nullptr;
    throwUnlessSucceeded(getClassObject(entry->classId, iidClassFactory, &found), programId, "has no class factory");
    const auto factory = Ref<IClassFactory>::taking(static_cast<IClassFactory*>(found));
    throwUnlessSucceeded(factory->CreateInstance(nullptr, interfaceId, &found), programId, "cannot be created");
    return Ref<IUnknown>::taking(static_cast<IUnknown*>(found));
}

} // namespace opd::com
