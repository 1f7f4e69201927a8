#include "adapters/settings/ini_store.h"

#include "support/files.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <sys/stat.h>

namespace opd::settings {
namespace {

using tests::contentOf;
using tests::TemporaryFolder;
using tests::writeFile;

constexpr const char* application = "QUORIN Current User";

TEST(IniStore, KeepsEveryTextAsItStands) {
    const TemporaryFolder folder;
    const auto file = folder / "store.ini";
    for (const char* text :
         {"plain", "", "  blanks at both ends  ", "a;b=c#d", "[x]", "=", "Peña 😀", "\"quoted\"", "\ttab\t"}) {
        IniStore{file}.set(application, {{"Connection", "Password", text}});
        EXPECT_EQ(IniStore{file}.get(application, "Connection", "Password"), text);
    }
    EXPECT_EQ(tests::modeOf(file), 0600U);
}

TEST(IniStore, ReadsAFileThatAPersonWroteAndClosedToOthers) {
    const TemporaryFolder folder;
    writeFile(folder / "store.ini",
              "\xEF\xBB\xBF; remark\r\n[Other]\r\nServer=wrong\r\n\r\n[connection]\r\n#Server=remark\r\n"
              "server =  kept blank\r\nUser=sa\r\nno equals sign\r\n[Last]\r\nPassword=wrong");
    const IniStore store{folder / "store.ini"};
    for (const mode_t open : {0640U, 0604U, 0602U}) {
        chmod((folder / "store.ini").c_str(), open);
        try {
            store.get(application, "Connection", "Server");
            ADD_FAILURE() << "mode " << open;
        } catch (const std::runtime_error& failure) {
            const std::string command = "chmod 600 \"" + (folder / "store.ini").string() + "\"";
            EXPECT_NE(std::string{failure.what()}.find(command), std::string::npos) << failure.what();
        }
    }
    chmod((folder / "store.ini").c_str(), 0600);
    EXPECT_EQ(store.get(application, "Connection", "Server"), "  kept blank");
    EXPECT_EQ(store.get(application, "Connection", "User"), "sa");
    EXPECT_EQ(store.get(application, "Connection", "Password"), "");
    EXPECT_EQ(store.get(application, "Nowhere", "User"), "");
}

TEST(IniStore, ChangesOneLineAndLeavesTheOthersAndTakesNothingThatTheFileCannotHold) {
    const TemporaryFolder folder;
    const auto file = folder / "store.ini";
    writeFile(file, "; mine\n[Connection]\nUser=a\n\n[Other]\nx=1\n");
    IniStore store{file};
    store.set(application, {{"CONNECTION", "user", "b"}, {"Connection", "Server", "s"}, {"New", "k", "v"}});
    for (const auto& [key, text] :
         {std::pair{"Server", "two\nlines"}, std::pair{"Server", "carriage\rreturn"}, std::pair{"a=b", "x"}})
        EXPECT_THROW(store.set(application, {{"Connection", "User", "c"}, {"Connection", key, text}}),
                     std::invalid_argument);
    EXPECT_EQ(contentOf(file), "; mine\n[Connection]\nuser=b\nServer=s\n\n[Other]\nx=1\n[New]\nk=v\n");
}

TEST(IniStore, LiesInTheUsersFolderAndAMissingFileIsEmptyAnUnreadableOneAFailure) {
    const TemporaryFolder folder;
    const tests::Variable config("XDG_CONFIG_HOME", folder.path().string());
    EXPECT_EQ(IniStore{}.get(application, "Connection", "Server"), "");
    IniStore{}.set(application, {{"Connection", "Server", "s"}});
    EXPECT_EQ(IniStore(folder / "QUORIN Current User.ini").get(application, "Connection", "Server"), "s");
    std::filesystem::create_directory(folder / "folder.ini");
    EXPECT_THROW(IniStore{folder / "folder.ini"}.get(application, "Connection", "Server"), std::runtime_error);
}

} // namespace
} // namespace opd::settings
