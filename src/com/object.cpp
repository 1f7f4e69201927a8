#include "com/object.h"

namespace opd::com {

namespace {

thread_local std::string errorText;

} // namespace

const std::string& lastErrorText() {
    return errorText;
}

void setLastErrorText(const std::string& text) {
    errorText = text;
}

Object::Object(IUnknown* object) : m_object(queried<ILateBound>(object, iidLateBound)) {
    if (!m_object)
        throw Error(errorNoInterface, "The object has no members that can be reached by name.");
}

Variant Object::invoke(const std::string& member, InvokeKind kind, const std::vector<Variant>& arguments) const {
    if (!m_object)
        throw Error(errorPointer, "There is no object to reach the member \"" + member + "\" of.");
    setLastErrorText({});
    Variant result;
    const HResult outcome = m_object->Invoke(member.c_str(), kind, arguments.data(), arguments.size(), &result);
    if (!succeeded(outcome))
        throw Error(outcome, lastErrorText().empty() ? "The member \"" + member + "\" failed." : lastErrorText());
    return result;
}

Variant Object::call(const std::string& member, const std::vector<Variant>& arguments) const {
    return invoke(member, InvokeKind::Call, arguments);
}

Variant Object::get(const std::string& member) const {
    return invoke(member, InvokeKind::Get, {});
}

void Object::set(const std::string& member, const Variant& value) const {
    invoke(member, InvokeKind::Set, {value});
}

std::string Object::text(const std::string& member) const {
    const Variant value = get(member);
    const auto* utf8 = std::get_if<std::string>(&value);
    return utf8 != nullptr ? *utf8 : std::string{};
}

bool Object::flag(const std::string& member, const std::vector<Variant>& arguments) const {
    const Variant value = call(member, arguments);
    const auto* truth = std::get_if<bool>(&value);
    return truth != nullptr && *truth;
}

Object Object::object(const std::string& member) const {
    const Variant value = get(member);
    const auto* reference = std::get_if<Ref<IUnknown>>(&value);
    if (reference == nullptr)
        throw Error(errorFail, "The member \"" + member + "\" is no object.");
    return Object{reference->get()};
}

} // namespace opd::com
