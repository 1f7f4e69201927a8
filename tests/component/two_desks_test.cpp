// One visit that is open on two desks: what the other one stored is never written over unseen, and a visit that it
// revoked stays revoked.
#include "component/two_desks.h"

#include "ado/error.h"

#include <chrono>
#include <csignal>
#include <optional>
#include <sys/wait.h>

namespace opd::tests {

namespace {

using namespace std::chrono_literals;

/// What a statement fails with.
std::string errorOf(ado::Connection& connection, const std::string& statement) {
    try {
        connection.Execute(sql(statement));
    } catch (const ado::Error& failure) {
        return failure.what();
    }
    return {};
}

TEST_F(TwoDesks, TheClerkSeesWhatTheOtherDeskStoredAndChoosesWhatStands) {
    const std::string streetBefore = street();
    auto form = openVisit();
    form->fields().consultation.txtWeight.setText("61");
    form->fields().personal.txtEmail.setText("a@b.ph");
    updateElsewhere(other.session, [](registration::Fields& fields) {
        fields.consultation.txtWeight.setText("70");
        fields.personal.txtHouseStreet.setText("1 OTHER ST.");
        fields.personal.motherName.setText("ANA");
        fields.personal.chkWalkIn.setChecked(true);
        fields.consultation.doctor1.code.setText("D012");
        fields.history.pepticUlcer.setChecked(true);
        fields.employment.mshDependents.setCell(1, 1, "04/19/2001");
    });
    otherProgram("Update Patient_Data..tbOutPatientHistory set Findings = 'SEEN' where IDNum = '2600000001B'");

    const auto born = [](const std::string& day) {
        return "SANTOS, PAOLO REYES  04/" + day + "/2001 / SANTOS, CLARA REYES  09/02/2004|";
    };
    EXPECT_FALSE(update(*form, [&](ui::Window& window) {
        EXPECT_EQ(window.focus()->name(), "grdFields");
        auto& grid = static_cast<ui::Grid&>(*window.find("grdFields"));
        const std::vector<std::string> rows = listedIn(window);
        EXPECT_EQ(rows,
                  (std::vector<std::string>{
                      "House/St.#|" + streetBefore + "|1 OTHER ST.|" + streetBefore + "|untouched",
                      "Mother: Name|PATRICIA REYES|ANA|PATRICIA REYES|untouched", "Walk-in Patient|No|Yes|No|untouched",
                      rows.size() > 3 ? rows[3] : "a doctor", // with the name
                      "Weight|52|70|61", "Peptic Ulcer|No|Yes|No|untouched",
                      "Dependent/s|" + born("18") + born("19") + born("18") + "untouched"}));
        EXPECT_TRUE(rows.at(3).starts_with("Attending Doctors 1|D0")) << rows.at(3);
        EXPECT_EQ(window.find("lblWarning")->caption(),
                  "\"Save mine\" would undo the other desk's change of 6 fields that nobody touched here.");
        grid.setCurrentRow(7);
        EXPECT_EQ(window.find("txtStored")->shownText(),
                  "SANTOS, PAOLO REYES  04/19/2001\r\nSANTOS, CLARA REYES  09/02/2004");
        window.pressKey(ui::key::escape); // goes back
    }));
    EXPECT_EQ(form->fields().consultation.txtWeight.text() + stored("Weight") + street(), "61701 OTHER ST.");
    EXPECT_NE(m_trace.find("begin\nPatient_Data..sp_aopd_LoadOutPatient '2600000001B'\nrollback\n"), std::string::npos)
        << m_trace;

    // A third desk comes between the choice and the write: the clerk is asked again, about what is new by then.
    EXPECT_TRUE(update(*form,
                       [&](ui::Window& window) {
                           updateElsewhere(other.session, [](registration::Fields& fields) {
                               fields.consultation.txtHeight.setText("170");
                           });
                           hospital.desktop.work([&](ui::Window& again) {
                               const auto& grid = static_cast<ui::Grid&>(*again.find("grdFields"));
                               EXPECT_EQ(grid.rowCount(), 1);
                               EXPECT_EQ(grid.cell(1, 0) + grid.cell(1, 2), "Height170");
                               again.pressAccessKey('S');
                           });
                           window.pressAccessKey('S');
                       }) ||
                hospital.desktop.shown.size() != 3);
    EXPECT_EQ(stored("Weight") + stored("Height") + street(), "61178" + streetBefore);
    EXPECT_EQ(stored("Findings", "tbOutPatientHistory"), "SEEN") << "what the form does not show stays as it stands";

    form = openVisit();
    form->fields().consultation.txtHeight.setText("165");
    updateElsewhere(other.session, [](registration::Fields& fields) { fields.header.txtFirstName.setText("MARISA"); });
    EXPECT_FALSE(update(*form, press('T')));
    EXPECT_EQ(form->fields().header.txtFirstName.text() + form->fields().consultation.txtHeight.text(), "MARISA178");
    EXPECT_EQ(form->window().statusLine(), "This is what the other desk stored. What was typed here is given up.");
    form->fields().consultation.txtHeight.setText("166");
    EXPECT_TRUE(update(*form)) << "what was taken over is no change of another desk";
    EXPECT_EQ(stored("Height") + stored("FirstName", "tbMaster", "HospNum = '00000002"), "166MARISA");
}

TEST_F(TwoDesks, WhatBothStoredAlikeOrNobodySeesIsNotAskedAbout) {
    auto form = openVisit();
    form->fields().consultation.txtWeight.setText("61");
    updateElsewhere(other.session, [](registration::Fields& fields) { fields.consultation.txtWeight.setText("61"); });
    otherProgram("Update Patient_Data..tbOutPatientHistory set Findings = 'SEEN', DiagnosisID1 = 'D1' where IDNum = "
                 "'2600000001B'");
    EXPECT_TRUE(update(*form));
    EXPECT_EQ(stored("Findings", "tbOutPatientHistory") + stored("DiagnosisID1", "tbOutPatientHistory"), "SEEND1");

    // What is another text at every look is given up, and not looked for without end.
    form = openVisit();
    int looks = 0;
    hospital.globals.gConnection->setTrace([&](const std::string& statement) {
        if (statement == "begin")
            otherProgram("Update Patient_Data..tbOutPatientHistory set Findings = 'SEEN " + std::to_string(++looks) +
                         "' where IDNum = '2600000001B'");
    });
    EXPECT_FALSE(update(*form));
    EXPECT_TRUE(
        hospital.desktop.messages.back().text.starts_with("Nothing of this try was saved: what is stored changes"));
    EXPECT_EQ(looks, 10);
    hospital.globals.gConnection->setTrace([this](const std::string& statement) { m_trace += statement + "\n"; });

    // Nobody else: the visit and everything that hangs off it are asked for once, before the first write.
    form = openVisit();
    EXPECT_TRUE(update(*form));
    const std::string begin = m_trace.substr(m_trace.find("begin\n"));
    EXPECT_TRUE(begin.starts_with("begin\nPatient_Data..sp_aopd_LoadOutPatient '2600000001B'\n"
                                  "Patient_Data..sp_Aopd_LoadAllergies '00000002'\n"
                                  "Patient_Data..sp_aopd_Load_TbMaster '00000002'\n"
                                  "Patient_Data..sp_Adm_LoadPatient '00000002'\n"
                                  "Patient_Data..sp_Adm_LoadDependents '00000002'\n"
                                  "Patient_Data..proc_Adm_Search_tbMasterMedicalHistory '00000002'\n"
                                  "Select * from Patient_Data..tbOutPatient where IDNUm = '2600000001B'\n"
                                  "Patient_Data..sp_aopd_Update_TbMaster "))
        << begin;

    // What this desk stored itself, in a try that failed behind its commit, is no change of another one.
    form = openVisit();
    form->fields().personal.txtRemarks.setText("lower case");
    form->fields().personal.motherName.setText("ANA");
    std::optional<ado::Transaction> lock;
    hospital.globals.gConnection->setPatience(50ms);
    hospital.globals.gConnection->setTrace([&](const std::string& statement) {
        if (statement.starts_with("Patient_Data..sp_Adm_UpdateMaster2") && !lock)
            lock.emplace(*other.globals.gConnection);
    });
    EXPECT_FALSE(update(*form));
    EXPECT_NE(hospital.desktop.messages.back().text.find("Still missing: contacts"), std::string::npos);
    lock.reset();
    hospital.globals.gConnection->setTrace([this](const std::string& statement) { m_trace += statement + "\n"; });
    EXPECT_TRUE(update(*form));
    EXPECT_EQ(stored("Remarks") + stored("mother", "tbMaster2", "HospNum = '00000002"), "LOWER CASEANA");

    // Switched off, nothing is asked and the last one stands.
    hospital.store.set("Saving", "WatchOtherDesks", "No");
    form = openVisit();
    otherProgram("Update Patient_Data..tbOutPatient set Weight = '99', OPDStatus = 'R' where IDNum = '2600000001B'");
    EXPECT_TRUE(update(*form));
    EXPECT_NE(m_trace.find("begin\nPatient_Data..sp_aopd_Update_TbMaster "), std::string::npos) << m_trace;
    EXPECT_EQ(stored("Weight") + stored("OPDStatus"), "61");
}

TEST_F(TwoDesks, AHospitalThatStoresNoComplaintIsAskedAboutEverythingElse) {
    hospital.globals.setClient("RVT");
    auto form = openVisit();
    form->fields().consultation.txtWeight.setText("61");
    form->fields().history.complaint.setText("cough");
    updateElsewhere(other.session, [](registration::Fields& fields) { fields.consultation.txtWeight.setText("70"); });
    otherProgram("Update Patient_Data..tbOutPatient set ChiefComplaints = 'FEVER' where IDNum = '2600000001B'");
    EXPECT_FALSE(update(*form, [](ui::Window& window) {
        const auto& grid = static_cast<ui::Grid&>(*window.find("grdFields"));
        ASSERT_EQ(grid.rowCount(), 1);
        EXPECT_EQ(grid.cell(1, 0) + grid.cell(1, 3), "Weight61");
        window.pressKey(ui::key::escape);
    }));
}

TEST_F(TwoDesks, AVisitThatWasRevokedOrRemovedMeanwhileIsNotBroughtBack) {
    otherProgram("Update Patient_Data..tbOutPatient set AdmDate = '11/24/2026 08:00' where IDNum = '2600000001B'");
    auto form = openVisit();
    form->fields().consultation.txtWeight.setText("61");
    const char* const status = "Update Patient_Data..tbOutPatient set OPDStatus = 'R' where IDNum = '2600000001B'";
    otherProgram(status);
    for (int tries = 0; tries < 2; ++tries) {
        EXPECT_FALSE(update(*form));
        EXPECT_TRUE(hospital.desktop.messages.back().text.starts_with(
            "Visit 2600000001B was revoked at another desk after it was opened here. A save does not bring it back: "
            "nothing was saved.\r\n\r\nIf it is to stand, have it restored at another desk and press Update again"));
        EXPECT_EQ(stored("OPDStatus") + stored("Weight"), "R52");
        EXPECT_TRUE(form->fields().header.lblAdmissionStatus.visible() && form->fields().buttons.cmdUnRevoke.visible());
    }
    otherProgram("Update Patient_Data..tbOutPatient set OPDStatus = '' where IDNum = '2600000001B'");
    EXPECT_TRUE(update(*form));
    EXPECT_EQ(stored("OPDStatus") + stored("Weight"), "61");

    // One that was opened as revoked is brought back by its save, as the hospitals know it.
    otherProgram(status);
    form = openVisit();
    EXPECT_TRUE(update(*form));
    EXPECT_EQ(stored("OPDStatus"), "");

    form = openVisit();
    otherProgram("Delete Patient_Data..tbOutPatient where IDNum = '2600000001B'");
    EXPECT_FALSE(update(*form));
    EXPECT_TRUE(
        hospital.desktop.messages.back().text.starts_with("Nothing was saved: visit 2600000001B can no longer"));
    EXPECT_TRUE(hospital.connect()
                    ->Execute("Select IDNum from Patient_Data..tbOutPatient where IDNum = '2600000001B'")
                    .EndOfFile());
}

// The status is written behind the commit, with the mark of a walk-in.
TEST_F(TwoDesks, ARevocationThatFallsIntoASaveStands) {
    const char* const revoke = "update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '2600000001B'";
    auto form = openVisit();
    form->fields().personal.chkWalkIn.setChecked(true);
    other.globals.gConnection->setPatience(50ms);
    std::string between;
    std::string within;
    hospital.globals.gConnection->setTrace([&](const std::string& statement) {
        if (statement.starts_with("Patient_Data..sp_Adm_UpdateMaster2"))
            between = errorOf(*other.globals.gConnection, revoke);
        if (statement.starts_with("Update Patient_data..tbOutPatient set isWalkIn"))
            within = errorOf(*other.globals.gConnection, revoke);
    });
    EXPECT_TRUE(update(*form));
    EXPECT_EQ(between, "");
    EXPECT_NE(within.find("in use by another program"), std::string::npos) << within;
    EXPECT_EQ(stored("OPDStatus") + stored("isWalkIn"), "RTrue");
    EXPECT_EQ(hospital.desktop.messages.back().text,
              "Visit 2600000001B was revoked at another desk while it was saved here. What was entered is stored, and "
              "the visit stays revoked.");
}

TEST_F(TwoDesks, NobodyComesBetweenTheAskingAndTheWriteAndAKilledDeskLeavesNoHalfVisit) {
    auto form = openVisit();
    other.globals.gConnection->setPatience(50ms);
    std::string refused;
    hospital.globals.gConnection->setTrace([&](const std::string& statement) {
        if (statement.starts_with("Patient_Data..sp_aopd_Update_TbMaster"))
            refused = errorOf(*other.globals.gConnection,
                              "update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '2600000001B'");
    });
    EXPECT_TRUE(update(*form));
    EXPECT_NE(refused.find("in use by another program"), std::string::npos) << refused;

    // The other desk is killed at each of its statements: it has stored its weight or not, and this desk learns which.
    hospital.globals.gConnection->Close(); // a process must not inherit an open database
    other.globals.gConnection->Close();
    bool killed = true;
    int asked = 0;
    int statement = 0;
    for (; killed && !HasFailure(); ++statement) {
        const std::string theirs = std::to_string(100 + statement);
        hospital.globals.gConnection = hospital.connect();
        form = openVisit();
        form->fields().consultation.txtWeight.setText("61");
        hospital.globals.gConnection->Close();
        const pid_t desk = fork();
        if (desk == 0) {
            other.globals.gConnection = hospital.connect();
            int left = statement;
            updateElsewhere(other.session, [&](registration::Fields& fields) {
                fields.consultation.txtWeight.setText(theirs);
                other.globals.gConnection->setTrace([&](const std::string&) {
                    if (left-- == 0)
                        raise(SIGKILL);
                });
            });
            _exit(0);
        }
        int status = 0;
        waitpid(desk, &status, 0);
        killed = WIFSIGNALED(status);
        hospital.globals.gConnection = hospital.connect();
        const bool wasStored = stored("Weight") == theirs;
        asked += wasStored ? 1 : 0;
        EXPECT_TRUE(update(*form, wasStored ? press('S') : TestDesktop::Work{})) << statement;
        EXPECT_EQ(stored("Weight"), "61");
        hospital.globals.gConnection->Close();
    }
    EXPECT_GT(statement, 20);
    EXPECT_GT(asked, 5);
    hospital.globals.gConnection = hospital.connect();
}

} // namespace
} // namespace opd::tests
