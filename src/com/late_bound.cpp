#include "com/late_bound.h"

#include "base/text/text.h"
#include "com/server.h"

#include <utility>

namespace opd::com {

void LateBound::onCall(const std::string& member, std::function<Variant(const Arguments&)> body) {
    m_members[{text::upper(member), InvokeKind::Call}] = std::move(body);
}

void LateBound::onGet(const std::string& member, std::function<Variant()> body) {
    m_members[{text::upper(member), InvokeKind::Get}] = [body = std::move(body)](const Arguments&) { return body(); };
}

void LateBound::onSet(const std::string& member, std::function<void(const Variant&)> body) {
    m_members[{text::upper(member), InvokeKind::Set}] = [body = std::move(body)](const Arguments& arguments) {
        if (arguments.size() != 1)
            throw Error(errorInvalidArgument, "A property is set to exactly one value.");
        body(arguments[0]);
        return Variant{};
    };
}

HResult LateBound::Invoke(const char* member, InvokeKind kind, const Variant* arguments, std::size_t count,
                          Variant* result) {
    if (member == nullptr || (arguments == nullptr && count > 0))
        return errorPointer;
    return guarded([&] {
        const auto found = m_members.find({text::upper(member), kind});
        if (found == m_members.end())
            throw Error(errorMemberNotFound, std::string{"There is no member \""} + member + "\" of that kind.");
        Variant value = found->second(Arguments(arguments, arguments + count));
        if (result != nullptr)
            *result = std::move(value);
        return ok;
    });
}

} // namespace opd::com
