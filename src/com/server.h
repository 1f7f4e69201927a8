#pragma once

#include "com/class_registry.h"

#include <atomic>
#include <functional>
#include <string>

namespace opd::com {

/// The four functions that a component library exports.
using GetClassObjectExport = HResult(const Guid& classId, const Guid& interfaceId, void** object);
using CanUnloadNowExport = HResult();
using RegisterServerExport = HResult();
using UnregisterServerExport = HResult();

struct ExportedNames {
    const char* getClassObject = "DllGetClassObject";
    const char* canUnloadNow = "DllCanUnloadNow";
    const char* registerServer = "DllRegisterServer";
    const char* unregisterServer = "DllUnregisterServer";
};
inline constexpr ExportedNames exportedNames{};

/// What stands behind those four functions in a library with one class. One static object per library, so that its
/// address tells which library it is.
class Server {
  public:
    /// Makes one object of the class, with one reference.
    using Maker = std::function<Ref<IUnknown>()>;

    Server(std::string programId, const Guid& classId, Maker make)
        : m_programId(std::move(programId)), m_classId(classId), m_make(std::move(make)) {}

    HResult getClassObject(const Guid& classId, const Guid& interfaceId, void** object);

    /// okButFalse while an object, a factory or a lock is left.
    HResult canUnloadNow() const { return m_uses == 0 && m_locks == 0 ? ok : okButFalse; }

    /// Enters the class with the library that holds this object, or removes it.
    HResult registerServer() const;
    HResult unregisterServer() const;

    /// Counts one use of the library for the life of its holder; every object of the library has one.
    class Use {
      public:
        explicit Use(Server& server) : m_server(server) { ++m_server.m_uses; }
        ~Use() { --m_server.m_uses; }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        Server& m_server;
    };

    /// For the class factory.
    Ref<IUnknown> make() const { return m_make(); }

    /// Adds a lock, or takes one away. False when there is none to take away.
    bool lock(bool lock);

  private:
    std::string m_programId;
    Guid m_classId;
    Maker m_make;
    std::atomic<int> m_uses{0};
    std::atomic<int> m_locks{0};
};

/// Runs a body at a component's boundary: what it throws becomes its HRESULT, with the description in the thread's
/// error text; without a failure the result is what the body returns.
HResult guarded(const std::function<HResult()>& body) noexcept;

} // namespace opd::com
