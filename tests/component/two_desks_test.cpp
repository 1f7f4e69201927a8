// One visit, or one patient, that is open on two desks: what the other one stored is never written over unseen, and a
// visit that it revoked stays revoked.
#include "registration/hospital_session.h"
#include "support/sql.h"

#include "ado/error.h"
#include "registration/meanwhile/changed_meanwhile.h"
#include "registration/registration.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <sys/wait.h>

namespace opd::tests {

namespace {

using namespace std::chrono_literals;

/// Another desk of a hospital, with a session and a connection of its own.
struct OtherDesk {
    explicit OtherDesk(const HospitalSession& hospital)
        : session{globals, desktop, hospital.clock, hospital.store, {}, hospital.session.devices} {
        globals.gConnection = hospital.connect();
        globals.gUserID = "OTHER";
        globals.gServerDate = hospital.clock.moment;
        globals.gCodeSearch = com::Object{hospital.listing.get()};
        desktop.agreesToAll = true;
    }

    Globals globals;
    TestDesktop desktop;
    Session session;
};

constexpr const char* hospNum = "00000002";
constexpr const char* visit = "2600000001B";
const search::Opening newVisit{"New", hospNum, "(TO BE GENERATED)", {}};

/// What a statement fails with.
std::string errorOf(ado::Connection& connection, const std::string& statement) {
    try {
        connection.Execute(sql(statement));
    } catch (const ado::Error& failure) {
        return failure.what();
    }
    return {};
}

class TwoDesks : public testing::Test {
  protected:
    TwoDesks() {
        hospital.desktop.agreesToAll = true;
        hospital.globals.gConnection->setTrace([this](const std::string& statement) { m_trace += statement + "\n"; });
    }

    std::string stored(const std::string& column, const std::string& table = "tbOutPatient",
                       const std::string& key = std::string{"IDNum = '"} + visit) {
        return hospital.connect()
            ->Execute(sql("Select " + column + " from Patient_Data.." + table + " where " + key + "'"))
            .Fields(column)
            .asText();
    }
    std::string street() { return stored("HouseStreet", "tbMaster", std::string{"HospNum = '"} + hospNum); }

    void otherProgram(const std::string& statement) { hospital.connect()->Execute(sql(statement)); }

    std::unique_ptr<registration::RegistrationForm> openVisit(const char* number = visit) {
        return hospital.open({"Edit", hospNum, number, {}});
    }

    /// What the other desk does with the same visit, from opening to storing.
    static void updateElsewhere(Session& session, const std::function<void(registration::Fields&)>& change,
                                const search::Opening& opening = {"Edit", hospNum, visit, {}}) {
        registration::RegistrationForm form(session, opening);
        form.SetRegistrationMode();
        change(form.fields());
        ASSERT_TRUE(form.validate());
        ASSERT_TRUE(registration::SaveData(session, form.fields(), form.record(), false));
    }

    /// Presses "&Update" or "&Register" in a form that is shown. `choose` works the window of the changes, which must
    /// come exactly when there is one. True when the form closed.
    bool update(registration::RegistrationForm& form, const TestDesktop::Work& choose = {}) {
        hospital.desktop.shown.clear();
        hospital.desktop.messages.clear();
        m_trace.clear();
        bool closed = false;
        hospital.desktop.work([&](ui::Window& window) {
            window.click(form.fields().buttons.cmdSave);
            closed = !window.isOpen();
        });
        if (choose)
            hospital.desktop.work(choose);
        hospital.desktop.show(form.window());
        EXPECT_EQ(hospital.desktop.shown.size() > 1, static_cast<bool>(choose));
        return closed;
    }

    /// The rows of the window of the changes.
    static std::vector<std::string> listedIn(ui::Window& window) {
        std::vector<std::string> rows;
        for (const ui::Grid::Row& row : static_cast<ui::Grid&>(*window.find("grdFields")).rows())
            rows.push_back(row[0] + "|" + row[1] + "|" + row[2] + "|" + row[3] +
                           (row[4].starts_with("UNDOES") ? "|untouched" : ""));
        return rows;
    }

    static TestDesktop::Work press(char32_t accessKey) {
        return [accessKey](ui::Window& window) { window.pressAccessKey(accessKey); };
    }

    std::string m_trace;
    HospitalSession hospital;
    OtherDesk other{hospital};
};

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

// Both desks looked at the day when they opened the form, and found no registration.
TEST_F(TwoDesks, APatientOnFileIsRegisteredOnceADay) {
    hospital.store.set("Saving", "OneVisitADay", "yes");
    auto form = hospital.open(newVisit);
    form->fields().personal.txtHouseStreet.setText("2 MY ST.");
    registration::RegistrationForm theirs(other.session, newVisit);
    theirs.SetRegistrationMode();
    theirs.fields().personal.txtHouseStreet.setText("1 OTHER ST.");
    ASSERT_TRUE(theirs.validate());
    ASSERT_TRUE(registration::SaveData(other.session, theirs.fields(), theirs.record(), false));

    EXPECT_FALSE(update(*form));
    EXPECT_TRUE(hospital.desktop.messages.back().text.starts_with("Patient has a current OPD registration as Adm. # " +
                                                                  theirs.record().AdmissionNumber + "."))
        << hospital.desktop.messages.back().text;
    EXPECT_EQ(street(), "1 OTHER ST.");
    otherProgram("Update Patient_Data..tbOutPatient set OPDStatus = 'R' where IDNum = '" +
                 theirs.record().AdmissionNumber + "'");
    EXPECT_TRUE(update(*form, press('S')));
    EXPECT_EQ(street(), "2 MY ST.");
}

TEST_F(TwoDesks, ANewVisitWritesThePatientOverNothingThatTheOtherDeskStored) {
    const std::string streetBefore = street();
    auto form = hospital.open(newVisit);
    registration::Fields& mine = form->fields();
    mine.consultation.txtWeight.setText("61");
    mine.header.dtpAdmDate.setValue({2026, 11, 23, 0, 0, 0});
    mine.personal.txtEmail.setText("a@b.ph");
    mine.header.male.setSelected(true);
    hospital.globals.gConnection->setTrace([this](const std::string& statement) {
        m_trace += statement + "\n";
        if (statement.find("GetDate") != std::string::npos)
            ++hospital.clock.moment.minute; // what the clock presets is nobody's change
    });
    updateElsewhere(
        other.session,
        [](registration::Fields& theirs) {
            theirs.header.txtBirthDate.setText("03/08/1950");
            theirs.personal.txtHouseStreet.setText("1 OTHER ST.");
            theirs.personal.cboCivilStatus.setText("Widow");
            theirs.employment.mshDependents.setCell(1, 1, "04/19/2001");
            theirs.consultation.txtWeight.setText("70"); // of a visit of their own
        },
        newVisit);
    // Another program has emptied the sex and stored a status that the form has no choice for.
    otherProgram("Update Patient_Data..tbMaster set CivilStatus = '9', Sex = '' where HospNum = '00000002'");
    std::vector<std::string> listed;
    const auto take = [&](ui::Window& window) {
        listed = listedIn(window);
        EXPECT_EQ(window.find("lblWhat")->caption(), "Another desk stored changes to the record of Hosp. # (00000002) "
                                                     "after it was opened here. Nothing of this desk is saved yet.");
        window.pressAccessKey('T');
    };
    EXPECT_FALSE(update(*form, take));
    const auto fields = [&] {
        std::string names;
        for (const std::string& row : listed)
            names += row.substr(0, row.find('|')) + (row.ends_with("|untouched") ? "," : "!,");
        return names;
    };
    EXPECT_EQ(fields(), "Sex!,Birthdate,House/St.#,Civil Status,Dependent/s,");
    EXPECT_NE(m_trace.find("begin\nPatient_Data..sp_aopd_Load_TbMaster '00000002'\nrollback\n"), std::string::npos)
        << m_trace;
    EXPECT_EQ(mine.personal.txtHouseStreet.text() + mine.header.txtBirthDate.text() + mine.header.txtAge.text(),
              "1 OTHER ST.03/08/195076");
    EXPECT_EQ(mine.consultation.txtWeight.text() + mine.personal.txtEmail.text(), "61a@b.ph");
    EXPECT_EQ(mine.header.dtpAdmDate.shownText(), "11/23/2026");
    EXPECT_FALSE(mine.header.male.selected() || mine.header.female.selected());
    mine.header.female.setSelected(true);
    EXPECT_TRUE(update(*form));
    EXPECT_NE(m_trace.find("begin\nPatient_Data..sp_aopd_Load_TbMaster '00000002'\n"
                           "Patient_Data..sp_Adm_LoadPatient '00000002'\n"
                           "Patient_Data..sp_Adm_LoadDependents '00000002'\n"
                           "Patient_Data..proc_Adm_Search_tbMasterMedicalHistory '00000002'\n"
                           "Patient_Data..sp_Aopd_LoadAllergies '00000002'\n"
                           "Patient_Data..sp_aopd_Update_TbMaster "),
              std::string::npos)
        << m_trace;
    const std::string ofPatient = std::string{"HospNum = '"} + hospNum;
    EXPECT_EQ(street() + stored("CivilStatus", "tbMaster", ofPatient) + stored("Sex", "tbMaster", ofPatient),
              "1 OTHER ST.9F");
    EXPECT_EQ(stored("Email", "tbMaster2", ofPatient), "a@b.ph");
    EXPECT_NE(street(), streetBefore);

    // Registered at both desks as it stands, also where it is not known yet who is insured, nobody is asked.
    otherProgram("Update Patient_Data..tbMaster2 set PhilHealth = null where HospNum = '00000002'");
    form = hospital.open(newVisit);
    updateElsewhere(
        other.session, [](registration::Fields&) {}, newVisit);
    EXPECT_TRUE(update(*form));

    // A patient who is not on file any more is not written again.
    form = hospital.open({"New", "00000010", "(TO BE GENERATED)", {}});
    otherProgram("Delete Patient_Data..tbMaster where HospNum = '00000010'");
    EXPECT_FALSE(update(*form));
    EXPECT_EQ(hospital.desktop.messages.back().text,
              "Nothing was saved: Hosp. # (00000010) is no longer on file. Please close this form.");
}

TEST_F(TwoDesks, ANewVisitThatIsTriedAgainStillSeesWhatTheOtherDeskStored) {
    // What no number could be drawn for is kept as it stood, with what it was filled from.
    std::optional<ado::Transaction> lock(*other.globals.gConnection);
    hospital.globals.gConnection->setPatience(50ms);
    auto form = hospital.open(newVisit);
    form->fields().consultation.txtWeight.setText("61");
    EXPECT_TRUE(update(*form));
    lock.reset();
    updateElsewhere(other.session,
                    [](registration::Fields& theirs) { theirs.personal.txtHouseStreet.setText("1 OTHER ST."); });
    form = hospital.open(newVisit);
    EXPECT_EQ(form->fields().consultation.txtWeight.text(), "61");
    EXPECT_FALSE(update(*form, press('T')));
    EXPECT_EQ(form->fields().personal.txtHouseStreet.text() + form->fields().consultation.txtWeight.text(),
              "1 OTHER ST.61");

    // What a try that failed behind its commit has stored is no change of another desk; what came behind it is one.
    form->fields().personal.motherName.setText("ANA");
    form->fields().employment.mshDependents.setCell(3, 0, "THE ELDEST");
    form->fields().employment.mshDependents.setCell(3, 1, "01/01/1990");
    hospital.globals.gConnection->setTrace([&](const std::string& statement) {
        if (statement.starts_with("Patient_Data..proc_Adm_Update_tbMasterMedicalHistory") && !lock)
            lock.emplace(*other.globals.gConnection);
    });
    EXPECT_FALSE(update(*form));
    lock.reset();
    otherProgram("Update Patient_Data..tbMaster set telnum = '555-1234' where HospNum = '00000002'");
    hospital.globals.gConnection->setTrace({});
    EXPECT_TRUE(update(*form, [](ui::Window& window) {
        EXPECT_EQ(listedIn(window).size(), 1u);
        EXPECT_EQ(listedIn(window).at(0), "Tel.#|8520-5077|555-1234|8520-5077|untouched");
        EXPECT_TRUE(window.find("lblWhat")->caption().ends_with("Nothing of this try is saved yet."));
        window.pressAccessKey('S');
    }));
    const auto telephone = [&] { return stored("telnum", "tbMaster", "HospNum = '00000002"); };
    EXPECT_EQ(telephone() + stored("mother", "tbMaster2", "HospNum = '00000002"), "8520-5077ANA");

    hospital.store.set("Saving", "WatchOtherDesks", "no");
    form = hospital.open(newVisit);
    otherProgram("Update Patient_Data..tbMaster set telnum = '555-1234' where HospNum = '00000002'");
    EXPECT_TRUE(update(*form));
    EXPECT_EQ(telephone(), "8520-5077");
}

} // namespace
} // namespace opd::tests
