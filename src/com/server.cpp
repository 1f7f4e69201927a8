#include "com/server.h"

#include "base/os/library.h"
#include "com/counted.h"
#include "com/object.h"

#include <stdexcept>

namespace opd::com {

namespace {

class ClassFactory final : public Counted<IClassFactory> {
  public:
    explicit ClassFactory(Server& server) : Counted(iidClassFactory), m_server(server), m_use(server) {}

    HResult CreateInstance(IUnknown* outer, const Guid& interfaceId, void** object) override {
        if (object == nullptr)
            return errorPointer;
        *object = nullptr;
        if (outer != nullptr)
            return errorNoAggregation;
        return guarded([&] { return m_server.make()->QueryInterface(interfaceId, object); });
    }

    HResult LockServer(std::int32_t lock) override {
        return guarded([&] {
            if (!m_server.lock(lock != 0))
                throw Error(errorFail, "The component is not locked.");
            return ok;
        });
    }

  private:
    Server& m_server;
    Server::Use m_use;
};

} // namespace

HResult Server::getClassObject(const Guid& classId, const Guid& interfaceId, void** object) {
    if (object == nullptr)
        return errorPointer;
    *object = nullptr;
    if (classId != m_classId)
        return errorClassNotAvailable;
    return guarded([&] {
        const auto factory = Ref<IClassFactory>::taking(new ClassFactory(*this));
        return factory->QueryInterface(interfaceId, object);
    });
}

bool Server::lock(bool lock) {
    if (lock) {
        ++m_locks;
        return true;
    }
    for (int locks = m_locks; locks > 0;)
        if (m_locks.compare_exchange_weak(locks, locks - 1))
            return true;
    return false;
}

HResult Server::registerServer() const {
    return guarded([&] {
        registerClass({m_programId, m_classId, os::libraryOf(this)});
        return ok;
    });
}

HResult Server::unregisterServer() const {
    return guarded([&] {
        unregisterClass(m_programId);
        return ok;
    });
}

HResult guarded(const std::function<HResult()>& body) noexcept {
    const auto fail = [](HResult result, const char* description) noexcept {
        try {
            setLastErrorText(description);
        } catch (...) { // no memory for the text; the result still tells that it failed
        }
        return result;
    };
    try {
        return body();
    } catch (const Error& error) {
        return fail(error.result(), error.what());
    } catch (const std::out_of_range& error) {
        return fail(errorSubscriptOutOfRange, error.what());
    } catch (const std::exception& error) {
        return fail(errorFail, error.what());
    } catch (...) {
        return fail(errorFail, "An unknown failure.");
    }
}

} // namespace opd::com
