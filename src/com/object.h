#pragma once

#include "com/unknown.h"

#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace opd::com {

/// A failure of a component, with the HRESULT that it answered.
class Error : public std::runtime_error {
  public:
    Error(HResult result, const std::string& description) : std::runtime_error(description), m_result(result) {}
    HResult result() const { return m_result; }

  private:
    HResult m_result;
};

/// A value given to or got from a late-bound member: nothing, boolean, whole number, UTF-8 text or object.
using Variant = std::variant<std::monostate, bool, std::int32_t, std::string, Ref<IUnknown>>;

enum class InvokeKind { Call, Get, Set };

inline constexpr Guid iidLateBound{0x00020400, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// An object whose members are reached by name at run time.
class ILateBound : public IUnknown {
  public:
    /// Calls, reads or sets a member, named in any letter case. On failure the description of the error stands in the
    /// thread's error text (see `lastErrorText`).
    virtual HResult Invoke(const char* member, InvokeKind kind, const Variant* arguments, std::size_t count,
                           Variant* result) = 0;

  protected:
    ~ILateBound() = default;
};

/// A late-bound object as C++ code uses it; every member throws Error when the object answers a failure.
class Object {
  public:
    Object() = default;

    /// Throws Error when the object is null or has no late-bound members.
    explicit Object(IUnknown* object);

    explicit operator bool() const { return static_cast<bool>(m_object); }

    Variant call(const std::string& member, const std::vector<Variant>& arguments = {}) const;
    Variant get(const std::string& member) const;
    void set(const std::string& member, const Variant& value) const;

    /// The result of a member as text (empty for nothing), flag or object.
    std::string text(const std::string& member) const;
    bool flag(const std::string& member, const std::vector<Variant>& arguments) const;
    Object object(const std::string& member) const;

  private:
    Variant invoke(const std::string& member, InvokeKind kind, const std::vector<Variant>& arguments) const;

    Ref<ILateBound> m_object;
};

/// The description of the last failed call on this thread.
const std::string& lastErrorText();
void setLastErrorText(const std::string& text);

} // namespace opd::com
