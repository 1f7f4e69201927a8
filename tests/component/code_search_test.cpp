#include "ado/connection.h"
#include "com/class_registry.h"
#include "com/connection_object.h"
#include "com/object.h"

#include "component/support.h"
#include "support/recording_provider.h"
#include "support/test_desktop.h"

#include <gtest/gtest.h>

namespace opd {
namespace {

/// The component as the module uses it: created through the class registry, reached by member names.
class CodeSearch : public ::testing::Test {
  protected:
    CodeSearch() {
        tests::registerClassesOf(tests::codeSearchLibrary());
        m_search = com::Object{com::createInstance("Trellicode.clsCodeSearch", com::iidLateBound).get()};
        m_providers.add("recording", m_server);
        m_connection->Open("Data Source=TESTSERVER");
        m_search.call("Initialize_Classes");
        const auto object = com::makeConnectionObject(m_connection);
        m_search.set("Connection", com::Ref<com::IUnknown>::sharing(object.get()));
    }

    bool found(const std::string& code, int listing) { return m_search.flag("SearchListing", {code, listing}); }

    const tests::TemporaryFolder m_folder;
    const tests::Variable m_registry{"OPD_CLASS_REGISTRY", (m_folder / "classes.ini").string()};
    std::shared_ptr<tests::RecordingProvider> m_server = std::make_shared<tests::RecordingProvider>();
    ado::Providers m_providers;
    std::shared_ptr<ado::Connection> m_connection = std::make_shared<ado::Connection>(m_providers);
    com::Object m_search;
};

TEST_F(CodeSearch, OnlyAnExactCodeFillsTheRecordOfItsListing) {
    m_server->answer("Select ZipCode",
                     tests::oneRow({{"ZipCode", "1000"}, {"Town", "Manila "}, {"Province", "Metro Manila"}}));
    m_server->answer("Select NationalityID", tests::oneRow({{"NationalityID", 1}, {"Nationality", "Filipino"}}));
    m_server->answer("Select ReligionID", {{"ReligionID", "Religion"}, {{"2", "A"}, {"2", "B"}}});
    EXPECT_TRUE(found(" 1000 ", 0));
    EXPECT_TRUE(found("1", 7));
    EXPECT_FALSE(found("2", 2)) << "one of two";
    EXPECT_EQ(m_server->log,
              "Select ZipCode, Town, Province from Build_File..tbCoAddress where ZipCode = '1000'\n"
              "Select NationalityID, Nationality from Build_File..tbCoNationality where NationalityID = '1'\n"
              "Select ReligionID, Religion from Build_File..tbCoReligion where ReligionID = '2'\n");
    m_server->log.clear();
    for (const char* text : {"", "   ", "1' or '1'='1", "'"})
        EXPECT_FALSE(found(text, 0)) << text;
    EXPECT_FALSE(found("1", 4)) << "a listing that is not served";
    m_search.set("OtherSectionID", std::string{"AA' or '1'='1"});
    EXPECT_THROW(found("GP", 21), std::exception) << "not a search of all sections";
    EXPECT_EQ(m_server->log, "");
    m_server->forgetRules("Select ZipCode");
    EXPECT_FALSE(found("9", 0));
    EXPECT_EQ(m_search.object("addressrecord").text("ResultCode"), "1000") << "it is as it was";
    EXPECT_EQ(m_search.object("AddressRecord").text("Town"), "Manila ");
    EXPECT_EQ(m_search.object("AddressRecord").text("province"), "Metro Manila");
    EXPECT_EQ(m_search.object("NationalityRecord").text("Nationality"), "Filipino");
}

TEST_F(CodeSearch, AskedForExactCodesAloneItShowsNeitherAListNorAMessage) {
    tests::TestDesktop desktop;
    ui::Desktop::setOfThread(&desktop);
    m_search.set("ExactCodesOnly", true);
    EXPECT_FALSE(found("FIL", 7));
    EXPECT_TRUE(desktop.shown.empty() && desktop.messages.empty());
    m_search.set("ExactCodesOnly", false);
    desktop.answer(ui::Answer::Ok);
    EXPECT_FALSE(found("FIL", 7));
    EXPECT_EQ(desktop.messages.size(), 1U);
    ui::Desktop::setOfThread(nullptr);
}

TEST_F(CodeSearch, AWrongUseIsAFailureWithADescription) {
    const auto resultOf = [&](auto use) {
        try {
            use();
        } catch (const com::Error& failure) {
            EXPECT_FALSE(std::string{failure.what()}.empty());
            return failure.result();
        }
        return com::ok;
    };
    EXPECT_EQ(resultOf([&] { m_search.call("NoSuchMember"); }), com::errorMemberNotFound);
    EXPECT_EQ(resultOf([&] { m_search.call("SearchListing", {std::string{"1"}}); }), com::errorInvalidArgument);
    EXPECT_EQ(resultOf([&] { m_search.set("Connection", std::string{"text"}); }), com::errorNoInterface);
    m_connection->Close();
    EXPECT_EQ(resultOf([&] { found("1", 0); }), com::errorFail);
}

} // namespace
} // namespace opd
