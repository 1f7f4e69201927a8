// A patient on file who is opened for a new visit on two desks: what the other one stored is never written over unseen.
#include "component/two_desks.h"

#include <chrono>
#include <optional>

namespace opd::tests {

namespace {

using namespace std::chrono_literals;

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
