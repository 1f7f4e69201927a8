#include "adapters/settings/ini_store.h"
#include "ado/connection.h"
#include "base/os/library.h"
#include "com/class_registry.h"
#include "com/connection_object.h"
#include "com/memory.h"
#include "com/object.h"
#include "com/server.h"
#include "component/init_dll.h"
#include "component/support.h"
#include "support/recording_provider.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

namespace opd {
namespace {

/// A host that knows the component by the class registry alone, in front of a recording database.
class Component : public ::testing::Test {
  protected:
    Component() {
        tests::registerClassesOf(tests::componentLibrary());
        tests::registerClassesOf(tests::codeSearchLibrary());
        ado::Providers::ofProcess().add("recording", m_server);
        configure("User", "sa");
        configure("Password", "secret");
        configure("Server", "HIS");
        m_component = com::createInstanceOf<IInitDLL>(initDllProgramId, iidInitDLL);
    }

    ~Component() override { m_connection->Close(); } // the session of this thread outlives the test and its server

    void configure(const char* key, const std::string& value) {
        settings::IniStore{m_folder / "store.ini"}.set(connectionSettingsApplication,
                                                       {{connectionSettingsSection, key, value}});
    }

    com::HResult handOverConnection() {
        return m_component->InitDLLConnection(com::makeConnectionObject(m_connection).get());
    }

    std::string connStr(std::int32_t kind, com::HResult expected = com::ok) {
        const char* catalog = "LABORATORY";
        char* text = nullptr;
        EXPECT_EQ(m_component->connStr(&kind, &catalog, &text), expected) << kind;
        std::string copy = text != nullptr ? text : "(null)";
        com::freeText(text);
        return copy;
    }

    static void expectRefused(com::HResult result, com::HResult wanted, const char* description) {
        EXPECT_EQ(result, wanted) << description;
        EXPECT_NE(com::lastErrorText().find(description), std::string::npos) << com::lastErrorText();
        com::setLastErrorText({});
    }

    const tests::TemporaryFolder m_folder;
    const tests::Variable m_registry{"OPD_CLASS_REGISTRY", (m_folder / "classes.ini").string()};
    const tests::Variable m_store{"OPD_SETTINGS", (m_folder / "store.ini").string()};
    const tests::Variable m_desktop{"OPD_DESKTOP", "scripted"};
    const tests::Variable m_script{"OPD_SCRIPT", (m_folder / "script.opd").string()};
    const std::shared_ptr<tests::RecordingProvider> m_server = std::make_shared<tests::RecordingProvider>();
    const std::shared_ptr<ado::Connection> m_connection = std::make_shared<ado::Connection>();
    com::Ref<IInitDLL> m_component;
};

TEST_F(Component, KeepsTheRulesOfAnObject) {
    const auto asUnknown = com::queried<com::IUnknown>(m_component.get(), com::iidUnknown);
    const auto again = com::queried<IInitDLL>(asUnknown.get(), iidInitDLL);
    EXPECT_EQ(again.get(), m_component.get());
    void* none = &none;
    EXPECT_EQ(m_component->QueryInterface(com::iidLateBound, &none), com::errorNoInterface);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(m_component->QueryInterface(iidInitDLL, nullptr), com::errorPointer);
    EXPECT_EQ(m_component->AddRef(), 4U);
    EXPECT_EQ(m_component->Release(), 3U);
}

/// Leaves every data source to the component's own provider.
struct ServesNothing final : ado::Provider {
    bool serves(const ado::ConnectionString&) const override { return false; }
    std::unique_ptr<ado::Link> open(const ado::ConnectionString&, const ado::Link::OnWait&) override { return nullptr; }
};

TEST_F(Component, MayBeUnloadedWhenNothingOfItIsLeft) {
    const os::Library library{tests::componentLibrary()};
    const auto canUnload = library.function<com::CanUnloadNowExport>(com::exportedNames.canUnloadNow);
    EXPECT_EQ(canUnload(), com::okButFalse) << "an object is left";
    m_component = {};
    EXPECT_EQ(canUnload(), com::ok);

    void* object = nullptr;
    const auto getClassObject = library.function<com::GetClassObjectExport>(com::exportedNames.getClassObject);
    EXPECT_EQ(getClassObject(com::iidUnknown, com::iidClassFactory, &object), com::errorClassNotAvailable);
    EXPECT_EQ(getClassObject(classIdInitDLL, iidInitDLL, &object), com::errorNoInterface);
    ASSERT_EQ(getClassObject(classIdInitDLL, com::iidClassFactory, &object), com::ok);
    auto factory = com::Ref<com::IClassFactory>::taking(static_cast<com::IClassFactory*>(object));
    EXPECT_EQ(canUnload(), com::okButFalse) << "a factory is left";
    EXPECT_EQ(factory->CreateInstance(factory.get(), com::iidUnknown, &object), com::errorNoAggregation);
    EXPECT_EQ(factory->CreateInstance(nullptr, com::iidLateBound, &object), com::errorNoInterface);
    EXPECT_EQ(factory->LockServer(0), com::errorFail);
    EXPECT_EQ(com::lastErrorText(), "The component is not locked.");
    factory->LockServer(1);
    com::IClassFactory* last = factory.get();
    last->AddRef();
    factory = {};
    EXPECT_EQ(canUnload(), com::okButFalse) << "a lock is left";
    EXPECT_EQ(last->LockServer(0), com::ok);
    last->Release();
    EXPECT_EQ(canUnload(), com::ok);

    // What the component has opened or found for others holds it as well.
    ASSERT_EQ(std::system(("'" OPD_DESK "' create-database '" + (m_folder / "h").string() + "' --patients 12").c_str()),
              0);
    ado::Providers::ofProcess().add("recording", std::make_shared<ServesNothing>());
    m_connection->Open("Data Source=" + (m_folder / "h").string());
    EXPECT_EQ(canUnload(), com::okButFalse) << "the host's connection is open";
    const auto searchCanUnload =
        os::Library{tests::codeSearchLibrary()}.function<com::CanUnloadNowExport>(com::exportedNames.canUnloadNow);
    com::Object search{com::createInstance("Trellicode.clsCodeSearch", com::iidLateBound).get()};
    com::Object record = search.object("ReligionRecord");
    search = {};
    EXPECT_EQ(searchCanUnload(), com::okButFalse) << "a record is left";
    record = {};
    EXPECT_EQ(searchCanUnload(), com::ok);
    m_connection->Close();
    EXPECT_EQ(canUnload(), com::ok);
}

TEST_F(Component, AnswersConnectionSettingsByTheirKind) {
    EXPECT_EQ(connStr(1), "sa");
    EXPECT_EQ(connStr(2), "secret");
    EXPECT_EQ(connStr(3), "HIS");
    EXPECT_EQ(connStr(4), "Provider=SQLOLEDB.8;User ID=sa;Password =secret;Persist Security Info=False;"
                          "Initial Catalog=LABORATORY;Data Source=HIS");
    EXPECT_EQ(connStr(5), "");
    for (const int kind : {0, 6, -1}) {
        EXPECT_EQ(connStr(kind, com::errorSubscriptOutOfRange), "(null)");
        EXPECT_EQ(com::lastErrorText(), "Subscript out of range");
    }
    configure("Password", "");
    EXPECT_NE(connStr(4).find("User ID=sa;Password =;"), std::string::npos) << "a user need not have a password";
    configure("User", "");
    EXPECT_EQ(connStr(4), "Provider=SQLOLEDB.8;Integrated Security=SSPI;Persist Security Info=False;"
                          "Initial Catalog=LABORATORY;Data Source=HIS");
    const std::int32_t kind = 1;
    expectRefused(m_component->connStr(&kind, nullptr, nullptr), com::errorPointer, "connStr");
}

TEST_F(Component, OpensTheHostsOwnConnectionWithItsSettingsAndDescribesWhatItRefuses) {
    ASSERT_EQ(handOverConnection(), com::ok);
    EXPECT_EQ(m_connection->State(), 1);
    EXPECT_EQ(m_connection->ConnectionString, connStr(4));
    configure("Server", "OTHER");
    ASSERT_EQ(m_component->LoadConnection(), com::ok) << "an open connection is closed first";
    EXPECT_EQ(m_connection->ConnectionString, connStr(4));

    const tests::Variable traced("OPD_TRACE", (m_folder / "trace").string());
    const auto handOver = [&](com::IUnknown* object) { return m_component->InitDLLConnection(object); };
    expectRefused(handOver(nullptr), com::errorPointer, "connection of InitDLLConnection");
    expectRefused(handOver(m_component.get()), com::errorNoInterface, "connection object");
    expectRefused(handOver(com::makeConnectionObject(nullptr).get()), com::errorInvalidArgument,
                  "holds no database connection");
    expectRefused(m_component->UserID(nullptr), com::errorPointer, "UserID");
    expectRefused(m_component->UserID("O'BRIEN"), com::errorInvalidArgument, "\"O'BRIEN\" holds an apostrophe");
    expectRefused(m_component->SearchCriteria(nullptr), com::errorPointer, "SearchCriteria");
    EXPECT_EQ(m_component->sSearcherObject(nullptr), com::ok) << "an object that is only kept";
    configure("Server", "THIRD");
    ASSERT_EQ(m_component->LoadConnection(), com::ok) << "the connection before is still the session's";
    EXPECT_EQ(m_connection->ConnectionString, connStr(4));
}

TEST_F(Component, WhatHindersTheSearchReachesTheHostAndNothingIsShown) {
    tests::writeFile(m_folder / "script.opd", "this script would fail at once\n");
    std::thread([&] { // whose session nobody has given a connection yet
        EXPECT_EQ(m_component->InitSetup(), com::errorFail);
        EXPECT_EQ(com::lastErrorText(), "The host has not handed over a database connection.");
        EXPECT_EQ(m_component->LoadConnection(), com::errorFail);
    })
        .join();
    ASSERT_EQ(handOverConnection(), com::ok);
    const os::Library library{tests::codeSearchLibrary()};
    library.function<com::UnregisterServerExport>(com::exportedNames.unregisterServer)();
    EXPECT_EQ(m_component->InitSetup(), com::errorClassNotRegistered);
    EXPECT_NE(com::lastErrorText().find("\"Trellicode.clsCodeSearch\""), std::string::npos) << com::lastErrorText();
    m_server->failOn("Select top 1", "Invalid object name 'tbHospitalInfo'.");
    EXPECT_EQ(m_component->InitSetup(), com::errorFail);
    EXPECT_EQ(com::lastErrorText(), "Invalid object name 'tbHospitalInfo'.");
}

TEST_F(Component, ShowsTheSearchWithTheHostsTextUntilTheClerkClosesIt) {
    tests::writeFile(m_folder / "script.opd", "expect-window frmMasterSearch\n"
                                              "expect txtName(0) \"PEÑA\"\n"
                                              "click Command1(2)\n"
                                              "expect txtName(0) \"CRUZ\"\n"
                                              "click Command1(2)\n");
    ASSERT_EQ(m_component->UserID("clerk"), com::ok);
    ASSERT_EQ(m_component->SearchCriteria("PEÑA"), com::ok);
    ASSERT_EQ(handOverConnection(), com::ok);
    m_server->answer("Select GetDate()", tests::oneRow({{"CurDate", "2026-03-07"}}));
    ASSERT_EQ(m_component->InitSetup(), com::okButFalse) << com::lastErrorText();
    EXPECT_TRUE(m_server->log.starts_with("Select top 1 isnull(ClientName,'') as ClientName")) << m_server->log;
    EXPECT_TRUE(m_server->log.ends_with("Select GetDate() As CurDate from patient_Data..tbHospitalInfo\n"
                                        "select * from Patient_Data..tbHospitalInfo\n"))
        << m_server->log;

    ASSERT_EQ(m_component->SearchCriteria("CRU'Z"), com::ok);
    EXPECT_EQ(m_component->InitSetup(), com::okButFalse) << com::lastErrorText();
    EXPECT_EQ(m_connection->State(), 1) << "the connection stays the host's";
}

} // namespace
} // namespace opd
