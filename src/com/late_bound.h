#pragma once

#include "com/counted.h"
#include "com/object.h"

#include <functional>
#include <map>
#include <string>

namespace opd::com {

/// An object whose members are entries of a table. A member is reached in any letter case; one that the object does not
/// have answers errorMemberNotFound, and what a member throws becomes its HRESULT.
class LateBound : public Counted<ILateBound> {
  public:
    LateBound() : Counted(iidLateBound) {}

    HResult Invoke(const char* member, InvokeKind kind, const Variant* arguments, std::size_t count,
                   Variant* result) override;

  protected:
    using Arguments = std::vector<Variant>;

    void onCall(const std::string& member, std::function<Variant(const Arguments&)> body);
    void onGet(const std::string& member, std::function<Variant()> body);
    void onSet(const std::string& member, std::function<void(const Variant&)> body);

  private:
    std::map<std::pair<std::string, InvokeKind>, std::function<Variant(const Arguments&)>> m_members;
};

/// The n-th argument as the asked-for kind. Throws Error with errorInvalidArgument when it is missing or of another
/// kind.
template <class Type> const Type& argument(const std::vector<Variant>& arguments, std::size_t index) {
    const Type* value = index < arguments.size() ? std::get_if<Type>(&arguments[index]) : nullptr;
    if (value == nullptr)
        throw Error(errorInvalidArgument, "Argument " + std::to_string(index + 1) + " is missing or of another kind.");
    return *value;
}

} // namespace opd::com
