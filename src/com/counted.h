#pragma once

#include "com/unknown.h"

#include <atomic>

namespace opd::com {

/// Reference counting and QueryInterface for a class with one interface. Objects begin with one reference, belong to
/// their maker, and delete themselves with the last Release.
template <class Interface> class Counted : public Interface {
  public:
    explicit Counted(const Guid& interfaceId) : m_interfaceId(interfaceId) {}
    virtual ~Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    HResult QueryInterface(const Guid& interfaceId, void** object) override {
        if (object == nullptr)
            return errorPointer;
        *object = nullptr;
        if (interfaceId != iidUnknown && interfaceId != m_interfaceId)
            return errorNoInterface;
        *object = static_cast<Interface*>(this);
        AddRef();
        return ok;
    }

    std::uint32_t AddRef() override { return ++m_references; }

    std::uint32_t Release() override {
        const std::uint32_t left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

  private:
    Guid m_interfaceId;
    std::atomic<std::uint32_t> m_references{1};
};

} // namespace opd::com
