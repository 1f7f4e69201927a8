#pragma once

#include "com/unknown.h"

#include <filesystem>
#include <optional>
#include <string>

namespace opd::com {

/// A class of components: the name that programs create it by, its identifier, and the library that makes it.
struct ClassEntry {
    std::string programId; ///< "OPDRegistration.InitDLL"
    Guid classId{};
    std::filesystem::path library; ///< absolute
};

/// The classes known to the user of this machine, kept in one small file that is read afresh every time and replaced
/// whole. The environment variable OPD_CLASS_REGISTRY names the file; without it it lies in the user's folder for data.
class ClassRegistry {
  public:
    ClassRegistry();
    explicit ClassRegistry(std::filesystem::path file) : m_file(std::move(file)) {}

    /// The class of a programmatic identifier, in any letter case. Throws com::Error when its entry is damaged.
    std::optional<ClassEntry> find(const std::string& programId) const;

    /// Adds the class or takes the place of the one with the same programmatic identifier.
    void add(const ClassEntry& entry) const;

    /// Forgets the class; one that is not there is no failure.
    void remove(const std::string& programId) const;

    const std::filesystem::path& file() const { return m_file; }

  private:
    std::filesystem::path m_file;
};

/// The same on the user's registry, as component libraries do it.
void registerClass(const ClassEntry& entry);
void unregisterClass(const std::string& programId);

/// Makes an object of the class: opens its library, asks it for the class factory and the factory for the interface.
/// Throws com::Error: errorClassNotRegistered when the registry does not name the class; otherwise what the library or
/// the factory answered, or errorFail when the library or its export is missing or others can change the library (see
/// trustedLibrary).
Ref<IUnknown> createInstance(const std::string& programId, const Guid& interfaceId);

/// The same, typed.
template <class Interface> Ref<Interface> createInstanceOf(const std::string& programId, const Guid& interfaceId) {
    Ref<IUnknown> object = createInstance(programId, interfaceId);
    return Ref<Interface>::sharing(static_cast<Interface*>(object.get()));
}

} // namespace opd::com
