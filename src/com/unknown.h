#pragma once

#include <cstdint>
#include <utility>

/// The binary shape of an in-process component: interfaces whose tables begin with QueryInterface, AddRef and Release,
/// results as HRESULTs. On Windows the system's own runtime takes this port's place.
namespace opd::com {

using HResult = std::int32_t;

inline constexpr HResult ok = 0;
inline constexpr HResult okButFalse = 1;
inline constexpr HResult errorFail = static_cast<HResult>(0x80004005U);
inline constexpr HResult errorNoInterface = static_cast<HResult>(0x80004002U);
inline constexpr HResult errorPointer = static_cast<HResult>(0x80004003U);
inline constexpr HResult errorInvalidArgument = static_cast<HResult>(0x80070057U);
inline constexpr HResult errorMemberNotFound = static_cast<HResult>(0x80020003U);
inline constexpr HResult errorClassNotRegistered = static_cast<HResult>(0x80040154U);
inline constexpr HResult errorClassNotAvailable = static_cast<HResult>(0x80040111U);
inline constexpr HResult errorNoAggregation = static_cast<HResult>(0x80040110U);
inline constexpr HResult errorSubscriptOutOfRange = static_cast<HResult>(0x800A0009U);

constexpr bool succeeded(HResult result) {
    return result >= 0;
}

struct Guid {
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::uint8_t data4[8];

    bool operator==(const Guid&) const = default;
};

inline constexpr Guid iidUnknown{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr Guid iidClassFactory{0x00000001, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

class IUnknown {
  public:
    /// Gives a counted reference to the asked-for interface, or errorNoInterface and null.
    virtual HResult QueryInterface(const Guid& interfaceId, void** object) = 0;
    virtual std::uint32_t AddRef() = 0;
    virtual std::uint32_t Release() = 0;

  protected:
    ~IUnknown() = default;
};

class IClassFactory : public IUnknown {
  public:
    virtual HResult CreateInstance(IUnknown* outer, const Guid& interfaceId, void** object) = 0;
    virtual HResult LockServer(std::int32_t lock) = 0;

  protected:
    ~IClassFactory() = default;
};

/// Owns one counted reference to an object.
template <class Interface> class Ref {
  public:
    Ref() = default;

    /// Takes over a reference that was counted already.
    static Ref taking(Interface* object) {
        Ref ref;
        ref.m_object = object;
        return ref;
    }

    /// Counts one more reference.
    static Ref sharing(Interface* object) {
        if (object != nullptr)
            object->AddRef();
        return taking(object);
    }

    Ref(const Ref& other) : Ref(sharing(other.m_object)) {}
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~Ref() {
        if (m_object != nullptr)
            m_object->Release();
    }

    Interface* get() const { return m_object; }
    Interface* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    bool operator==(const Ref& other) const { return m_object == other.m_object; }

  private:
    Interface* m_object = nullptr;
};

/// The same object by another of its interfaces; empty when it has not got that one.
template <class Interface> Ref<Interface> queried(IUnknown* object, const Guid& interfaceId) {
    void* found = nullptr;
    if (object == nullptr || !succeeded(object->QueryInterface(interfaceId, &found)))
        return {};
    return Ref<Interface>::taking(static_cast<Interface*>(found));
}

} // namespace opd::com
