#include "component/init_dll_object.h"

#include "ado/statement.h"
#include "com/class_registry.h"
#include "com/connection_object.h"
#include "com/memory.h"
#include "com/object.h"
#include "component/composition.h"
#include "component/session_start.h"
#include "data/connection_settings.h"
#include "data/entry_settings.h"
#include "data/saving_settings.h"
#include "data/searching_settings.h"
#include "reports/photograph.h"

#include <functional>
#include <new>
#include <string>
#include <string_view>

namespace opd {

// The public face names the store for hosts that include nothing else of the module.
static_assert(std::string_view{connectionSettingsApplication} == data::settingsApplication);
static_assert(std::string_view{connectionSettingsSection} == data::connectionSection);
static_assert(std::string_view{pictureSettingsSection} == reports::pictureSection);
static_assert(std::string_view{savingSettingsSection} == data::savingSection);
static_assert(std::string_view{searchingSettingsSection} == data::searchingSection);
static_assert(std::string_view{entrySettingsSection} == data::entrySection);

namespace {

/// Runs the body with what the pointer leads to. A null pointer fails with a description of its own.
com::HResult withPointer(const void* pointer, const char* what, const std::function<com::HResult()>& body) {
    return com::guarded([&] {
        if (pointer == nullptr)
            throw com::Error(com::errorPointer, std::string{what} + " is missing: the pointer is null.");
        return body();
    });
}

// The user stands in quotes in statements, and there is no way to write a quote within them.
void refuseApostrophe(const std::string& user) {
    if (!ado::isSendable(user))
        throw com::Error(com::errorInvalidArgument, "The user id \"" + user +
                                                        "\" holds an apostrophe, which cannot be stored with a "
                                                        "registration. Use a user id without one.");
}

} // namespace

InitDLL::InitDLL(com::Server& server)
    : Counted(iidInitDLL), m_use(server), m_settings(composition::makeStore()),
      m_reports(composition::makeReportEngine(*m_settings)) {
    composition::addProviders(server);
}

Session InitDLL::session() const {
    return {
        Globals::ofThread(),
        composition::desktop(),
        composition::clock(),
        *m_settings,
        [](const std::string& programId) {
            return com::Object{com::createInstance(programId, com::iidLateBound).get()};
        },
        {*m_reports, composition::camera(), composition::images(), composition::prints(), composition::moduleFolder()}};
}

com::HResult InitDLL::InitSetup() {
    return com::guarded([&] {
        Session current = session();
        return runSearch(current) == SearchEnd::ClosedByClerk ? com::okButFalse : com::ok;
    });
}

com::HResult InitDLL::LoadConnection() {
    return com::guarded([&] {
        Session current = session();
        data::LoadConnection(current);
        return com::ok;
    });
}

com::HResult InitDLL::connStr(const std::int32_t* kind, const char* const* databaseName, char** text) {
    if (text != nullptr)
        *text = nullptr;
    const bool complete = text != nullptr && kind != nullptr && databaseName != nullptr && *databaseName != nullptr;
    return withPointer(complete ? text : nullptr, "An argument of connStr", [&] {
        *text = com::allocateText(data::connStr(*m_settings, *kind, *databaseName));
        if (*text == nullptr)
            throw std::bad_alloc();
        return com::ok;
    });
}

com::HResult InitDLL::InitDLLConnection(com::IUnknown* connection) {
    return withPointer(connection, "The connection of InitDLLConnection", [&] {
        const auto object = com::queried<com::IConnectionObject>(connection, com::iidConnectionObject);
        if (!object)
            throw com::Error(com::errorNoInterface, "InitDLLConnection needs a database connection object.");
        if (!object->connection())
            throw com::Error(com::errorInvalidArgument, "The connection object holds no database connection.");
        composition::traceStatements(*object->connection());
        composition::drawWhileWaiting(*object->connection());
        Globals::ofThread().gConnection = object->connection();
        return LoadConnection();
    });
}

com::HResult InitDLL::UserID(const char* user) {
    return withPointer(user, "The text of UserID", [&] {
        refuseApostrophe(user);
        Globals::ofThread().gUserID = user;
        return com::ok;
    });
}

com::HResult InitDLL::SearchCriteria(const char* text) {
    return withPointer(text, "The text of SearchCriteria", [&] {
        Globals::ofThread().gSearchCriteria = text;
        return com::ok;
    });
}

com::HResult InitDLL::sSearcherObject(com::IUnknown* object) {
    return com::guarded([&] {
        Globals::ofThread().gSearcherObject = com::Ref<com::IUnknown>::sharing(object);
        return com::ok;
    });
}

} // namespace opd
