#include "adapters/sqlite/hospital.h"
#include "com/class_registry.h"
#include "com/connection_object.h"
#include "com/object.h"
#include "component/init_dll.h"
#include "component/support.h"

#include <barrier>
#include <gtest/gtest.h>
#include <set>
#include <thread>

namespace opd {
namespace {

/// Registers some patients on file, one after another, behind a first look at the search window.
std::string scriptFor(const std::vector<std::string>& patients) {
    std::string script = "expect-window frmMasterSearch\nclick Command1(2)\nexpect-window frmMasterSearch\n";
    for (const std::string& patient : patients)
        script.append("type txtHospNum \"" + patient + "\"\nwait 600\nkey Enter\nexpect-window frmRegistration\n")
            .append("answer \"OK\" like \".* was registered as Hosp\\. # \\(" + patient + "\\) and Case # .*\"\n")
            .append("click cmdSave\nexpect-window frmMasterSearch\n");
    return script + "click Command1(2)\n";
}

/// Two threads of one host, each with its own object, connection and script.
struct TwoThreads : testing::Test {
    TwoThreads() {
        tests::registerClassesOf(tests::componentLibrary());
        tests::registerClassesOf(tests::codeSearchLibrary());
        tests::writeFile(folder / "ALPHA.opd", scriptFor({"00000021", "00000022", "00000023"}));
        tests::writeFile(folder / "BRAVO.opd", scriptFor({"00000031", "00000032", "00000033"}));
    }

    void work(const std::string& user) {
        together.arrive_and_wait();
        const auto component = com::createInstanceOf<IInitDLL>(initDllProgramId, iidInitDLL);
        const auto connection = com::makeConnectionObject(std::make_shared<ado::Connection>());
        EXPECT_EQ(component->UserID(user.c_str()), com::ok);
        EXPECT_EQ(component->SearchCriteria(""), com::ok);
        EXPECT_EQ(component->InitDLLConnection(connection.get()), com::ok) << com::lastErrorText();
        // The script is named by the environment of the process, so the desktops are made one after the other.
        for (const char* turn : {"ALPHA", "BRAVO"}) {
            together.arrive_and_wait();
            if (user != turn)
                continue;
            const tests::Variable script("OPD_SCRIPT", (folder / (user + ".opd")).string());
            EXPECT_EQ(component->InitSetup(), com::okButFalse) << com::lastErrorText();
        }
        together.arrive_and_wait();
        com::HResult outcome = com::ok; // once for each patient, as a host does
        while (outcome == com::ok)
            outcome = component->InitSetup();
        EXPECT_EQ(outcome, com::okButFalse) << com::lastErrorText();
        EXPECT_EQ(component->UserID(nullptr), com::errorPointer);
    }

    tests::EmbeddedHospital hospital{60};
    const tests::TemporaryFolder folder;
    const tests::Variable registry{"OPD_CLASS_REGISTRY", (folder / "classes.ini").string()};
    const tests::Variable database{"OPD_DATABASE", hospital.folder().string()};
    const tests::Variable desktop{"OPD_DESKTOP", "scripted"};
    const tests::Variable trace{"OPD_TRACE", (folder / "trace").string()};
    std::barrier<> together{2};
};

TEST_F(TwoThreads, EachRegistersItsPatientsInASessionOfItsOwn) {
    std::thread alpha([this] { work("ALPHA"); });
    std::thread bravo([this] { work("BRAVO"); });
    alpha.join();
    bravo.join();
    const auto visits =
        tests::rowsOf(*hospital.connect(), "select HospNum, UserID from Patient_Data..tbOutPatient where "
                                           "UserID <> 'DEMO'");
    EXPECT_EQ(std::multiset<std::string>(visits.begin(), visits.end()),
              (std::multiset<std::string>{"00000021|ALPHA", "00000022|ALPHA", "00000023|ALPHA", "00000031|BRAVO",
                                          "00000032|BRAVO", "00000033|BRAVO"}));
    // Every line of the trace is whole.
    const std::string traced = tests::contentOf(folder / "trace");
    std::size_t commits = 0;
    for (std::size_t at = traced.find("\ncommit\n"); at != std::string::npos; at = traced.find("\ncommit\n", at + 1))
        ++commits;
    EXPECT_EQ(commits, 12U) << "two transactions for each of six registrations\n" << traced;
}

} // namespace
} // namespace opd
