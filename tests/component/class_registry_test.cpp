#include "com/class_registry.h"

#include "com/guid.h"
#include "com/object.h"
#include "component/init_dll.h"
#include "component/support.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace opd::com {
namespace {

using tests::TemporaryFolder;
using tests::writeFile;

TEST(ClassRegistry, ReadsIdentifiersInTheFormOfTheRegistryAlone) {
    EXPECT_EQ(toText(iidInitDLL), "{00CB8F23-5680-49CB-9CB9-C463D4D9A227}"); // as it is published
    EXPECT_EQ(parseGuid("{00cb8f23-5680-49cb-9cb9-c463d4d9a227}"), iidInitDLL);
    for (const char* text : {"", "{}", "00CB8F23-5680-49CB-9CB9-C463D4D9A227", "{00CB8F23-5680-49CB-9CB9-C463D4D9A22}",
                             "{00CB8F23x5680-49CB-9CB9-C463D4D9A227}", "{00CB8F23-5680-49CB-9CB9-C463D4D9A2G7}",
                             "{00CB8F23-5680-49CB-9CB9-C463D4D9A2 7}"})
        EXPECT_FALSE(parseGuid(text)) << text;
}

TEST(ClassRegistry, FindsAddsReplacesAndRemovesClasses) {
    const TemporaryFolder folder;
    const ClassRegistry registry{folder / "below" / "classes.ini"};
    registry.add({"A.B", iidInitDLL, "/lib/old.so"});
    registry.add({"C.D", iidUnknown, "/lib/other.so"});
    registry.add({"A.B", iidInitDLL, "/lib/new.so"});
    ASSERT_TRUE(registry.find("a.b"));
    EXPECT_EQ(registry.find("a.b")->library, "/lib/new.so");
    EXPECT_EQ(registry.find("a.b")->classId, iidInitDLL);
    registry.remove("A.B");
    registry.remove("A.B");
    EXPECT_FALSE(registry.find("A.B"));
    EXPECT_TRUE(registry.find("C.D"));
}

TEST(ClassRegistry, LosesNoClassOfProgramsThatStartAtOnce) {
    const TemporaryFolder folder;
    const ClassRegistry registry{folder / "classes.ini"};
    std::vector<pid_t> programs;
    for (const char* name : {"A", "B", "C", "D"}) {
        programs.push_back(fork());
        if (programs.back() != 0)
            continue;
        for (int n = 0; n < 8; ++n)
            registry.add({name + std::to_string(n), iidUnknown, "/lib/x.so"});
        _exit(0);
    }
    for (const pid_t program : programs)
        waitpid(program, nullptr, 0);
    for (const char* name : {"A", "B", "C", "D"})
        for (int n = 0; n < 8; ++n)
            EXPECT_TRUE(registry.find(name + std::to_string(n))) << name << n;
}

TEST(ClassRegistry, ACreationThatCannotBeSaysWhy) {
    const TemporaryFolder folder;
    const auto file = folder / "classes.ini";
    const tests::Variable named("OPD_CLASS_REGISTRY", file.string());
    writeFile(folder / "no-library.so", "text");
    const std::string classLine = "Class=" + toText(classIdInitDLL) + "\nLibrary=";
    const struct {
        std::string entry;
        HResult result;
        std::string part;
    } cases[] = {
        {"", errorClassNotRegistered, "\"A.B\" is not registered"},
        {"[A.B]\nClass=nonsense\nLibrary=/x.so\n", errorClassNotRegistered, "damaged"},
        {"[A.B]\n" + classLine + "/nowhere/lib.so\n", errorFail, "is missing"},
        {"[A.B]\n" + classLine + (folder / "no-library.so").string() + "\n", errorFail, "cannot be opened"},
        {"[A.B]\n" + classLine + tests::otherLibrary().string() + "\n", errorFail, "no export \"DllGetClassObject\""},
        {"[A.B]\n" + classLine + tests::codeSearchLibrary().string() + "\n", errorClassNotAvailable,
         "no class factory"},
    };
    for (const auto& wanted : cases) {
        writeFile(file, wanted.entry);
        try {
            createInstance("A.B", iidUnknown);
            ADD_FAILURE() << wanted.part;
        } catch (const Error& failure) {
            EXPECT_EQ(failure.result(), wanted.result) << failure.what();
            EXPECT_NE(std::string{failure.what()}.find(wanted.part), std::string::npos) << failure.what();
        }
    }
}

TEST(ClassRegistry, OnlyWhatNobodyElseCanChangeIsLoaded) {
    const TemporaryFolder folder;
    const auto inner = folder / "lib";
    const auto file = inner / "component.so";
    std::filesystem::create_directory(inner);
    std::filesystem::copy_file(tests::codeSearchLibrary(), file);
    const tests::Variable named("OPD_CLASS_REGISTRY", (folder / "classes.ini").string());
    registerClass({"A.B", iidUnknown, file});
    const auto outcome = [] {
        try {
            createInstance("A.B", iidUnknown);
        } catch (const Error& failure) {
            return std::string{failure.what()};
        }
        return std::string{"created"};
    };
    for (const auto& part : {file, inner, folder.path()}) {
        std::filesystem::permissions(part, std::filesystem::perms::others_write, std::filesystem::perm_options::add);
        const std::string refusal = outcome();
        EXPECT_NE(refusal.find("others than you and the administrator can change \"" +
                               std::filesystem::canonical(part).string() + "\""),
                  std::string::npos)
            << refusal;
        std::filesystem::permissions(part, std::filesystem::perms::others_write, std::filesystem::perm_options::remove);
        EXPECT_NE(outcome().find("no class factory"), std::string::npos) << "loaded: " << outcome();
    }
}

} // namespace
} // namespace opd::com
