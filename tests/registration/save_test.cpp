#include "registration/form_fixture.h"

#include "ado/error.h"
#include "registration/accounts/account_records.h"
#include "registration/load/master_loader.h"

#include <map>

namespace opd::tests {

namespace {

/// Every text box holds its own name, so that the statements below say which box each of their arguments comes from.
/// Values that are raised to upper case show it.
void fillWithNames(FormFixture& desk) {
    registration::Fields& fields = desk.form->fields();
    for (ui::Control* control : desk.form->window().everything())
        if (auto* box = dynamic_cast<ui::TextBox*>(control); box != nullptr && box != &fields.header.txtOPDNum &&
                                                             box != &fields.header.txtHospNum &&
                                                             box != &fields.consultation.txtPR)
            box->setText(control->name());
    fields.header.txtAge.setText("46");
    fields.consultation.txtPR.setText("72"); // the one box that takes numbers alone
    fields.header.female.setSelected(true);
    fields.header.txtBirthDate.setText("03/07/1980");
    fields.header.dtpAdmDate.setValue({2026, 11, 24, 0, 0, 0});
    fields.header.txtAdmTime.setValue({2026, 11, 24, 14, 5, 0});
    fields.personal.cboCivilStatus.setText("Married");
    fields.personal.chkSeniorCitizen.setChecked(true);
    fields.personal.purposeHema.setChecked(true);
    fields.personal.chkPatientType.setChecked(true);
    fields.personal.notInsured.setSelected(true);
    fields.personal.cmbPaycodeID.setText(" PC1 ");
    fields.consultation.withBill.setSelected(true);
    fields.consultation.optMiniOR.setSelected(true);
    fields.history.hepatitis.setChecked(true);
    fields.history.others.setChecked(true);
    fields.employment.privateSector.setSelected(true);
    fields.employment.abroad.setSelected(true);
    fields.employment.philHealthYes.setSelected(true);
    ui::Grid& dependents = fields.employment.mshDependents; // of which the complete ones are saved
    dependents.show(dependents.columns(), {{"LIZA", "01/02/2015"}, {"BEN", ""}, {" ", "01/02/2004"}, {"", ""}});
    dependents.setCurrentRow(3);
}

// The master list that every client but RVT has.
constexpr const char* standardShape =
    R"(Patient_Data..sp_aopd_Update_TbMaster  '00000012', 'TXTLASTNAME', 'TXTFIRSTNAME', 'TXTMIDDLENAME', 'TXTHOUSESTREET', 'TXTBARANGAY', 'txtZipCode', 'F', '03/07/1980', 'TXTTELNUM(2)', '46', 'txtEmployer(0)', 'txtEmployer(1)', 'txtEmployer(2)', '26A0000007B', 'txtGuarantor(0)', 'txtGuarantor(1)', 'txtGuarantor(3)', 'txtGuarantor(2)', 'txtInformant(0)', 'txtInformant(1)', 'txtInformant(3)', 'txtInformant(2)', '2', 'txtGuarantor(4)', '1', 'txtSeniorCitizenID', 'txtPersonal(5)', 'txtBloodType', 'txtTitle'
Patient_Data..sp_AOPD_Save_TbMasterAllergies '00000012', 'txtAllergy(0)', 'txtAllergy(1)', 'txtAllergy(2)', 'txtAllergy(3)', 'txtAllergy(4)'
Patient_Data..sp_AOPD_UpdateOPDHistory '00000012','26A0000007B','txtService(0)','txtDoctor(0)','','','','','','TXTREMARKS','txtCauseofConsultationID1','txtCauseofConsultationID2','txtCauseofConsultationID3','txtChiefComplaint(1)'
)";

constexpr const char* standardVisit =
    R"(Patient_Data..sp_aopd_Update_tbOutpatient '00000012','26A0000007B','txtAccount(0)','TXTREMARKS','txtService(0)','txtService(2)','txtService(4)','','','txtDoctor(0)','txtDoctor(2) ','P','W','txtWeight','txtTemperature','txtBP(0)/txtBP(1)','N','CLERK','11/24/2026 02:05 PM','txtChiefComplaint(1)','72','txtCardNum','W','H','txtARemarks','txtHeight','3','','1','txtRespRate','txtApprovalNo','0','0'
)";

constexpr const char* rvtMaster =
    R"(Patient_Data..sp_aopd_Update_TbMaster  '00000012', 'TXTLASTNAME', 'TXTFIRSTNAME', 'TXTMIDDLENAME', 'TXTHOUSESTREET', 'TXTBARANGAY', 'txtZipCode', 'F', '03/07/1980', 'TXTTELNUM(2)', '46', 'txtEmployer(0)', 'txtEmployer(1)', 'txtEmployer(2)', '26A0000007B', 'txtGuarantor(0)', 'txtGuarantor(1)', 'txtGuarantor(3)', 'txtGuarantor(2)', 'txtInformant(0)', 'txtInformant(1)', 'txtInformant(3)', 'txtInformant(2)', '2', 'txtGuarantor(4)', 'txtReligion', '1', '1', 'txtSeniorCitizenID', 'txtPersonal(5)', 'txtBloodType', 'txtTitle'
Patient_Data..sp_AOPD_Save_TbMasterAllergies '00000012', 'txtAllergy(0)', 'txtAllergy(1)', 'txtAllergy(2)', 'txtAllergy(3)', 'txtAllergy(4)'
)";

constexpr const char* rvtVisit =
    R"(Patient_Data..sp_aopd_Update_tbOutpatient '00000012','26A0000007B','txtAccount(0)','TXTREMARKS','txtService(0)','txtService(2)','txtService(4)','','','txtDoctor(0)','txtDoctor(2) ','P','W','txtWeight','txtTemperature','txtBP(0)/txtBP(1)','N','CLERK','11/24/2026 02:05 PM','txtCauseofConsultationID1','txtCauseofConsultationID2','txtCauseofConsultationID3','72','PC1','txtCardNum','W','H','txtARemarks','txtHeight','3','','1','txtRespRate','txtApprovalNo'
)";

constexpr const char* doctors =
    R"(Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation 'txtDoctor(0)'
Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation 'txtDoctor(2)'
Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation 'txtAddDoctor(0)'
Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation 'txtAddDoctor(2)'
Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation 'txtAddDoctor(4)'
Patient_Data..OPD_Update_AdditionalDr '26A0000007B', 'txtAddDoctor(0)', '1'
Patient_Data..OPD_Update_AdditionalDr '26A0000007B', 'txtAddDoctor(2)', '2'
Patient_Data..OPD_Update_AdditionalDr '26A0000007B', 'txtAddDoctor(4)', '3'
)";

constexpr const char* afterCommit =
    R"(commit
Patient_Data..sp_Adm_UpdateMaster2 '00000012','txtPersonal(0)','txtNationality','txtReligion','txtPersonal(8)','txtMother(0)','txtFather(0)','txtEmployer(0)','txtEmployer(2)','txtEmployer(1)','txtNotify(0)','txtNotify(1)','txtNotify(3)','txtNotify(2)','txtSpouse(4)','txtSpouse(3)','txtFather(1)','txtFather(2)','txtMother(1)','txtMother(2)','txtPersonal(9)','txtEmployer(4)',2,2,'txtEmployer(3)','txtEmployerEmail','txtSpouse(1)','txtSpouse(2)','txtSpouse(5)','txtSpouse(0)','txtSpouse(6)','1','','txtPersonal(13)','txtEmail','txtPersonal(11)' 
begin
Delete Patient_Data..tbMasterDependent where SeqNum = '00000012'
Patient_Data..sp_Adm_SaveDependents  00000012, 'LIZA', '01/02/2015' 
commit
Patient_Data..proc_Adm_Update_tbMasterMedicalHistory '00000012', 0, 0, 1, 0, 0, 0, 0, 0, 'txtMedHistory'
Update Patient_data..tbOutPatient set isChemo = '0', isHemodialysis = '0', isRadiotherapy = '0', ExpirationDate = null, isForDeposit = '0' where IDnum = '26A0000007B'
Update Patient_data..tbOutPatient set isWalkIn = '0', OPDStatus = '' where IDnum = '26A0000007B'
)";

constexpr const char* similarRecords = "PATIENT_DATA..sp_AOPD_SearchSimilarRecords 'txtLastName','txtFirstName',46\n";
constexpr const char* confinement = "PATIENT_DATA..sp_AOPD_CheckIfAdmitted 'NEW'\n";
constexpr const char* numbers = "{call Patient_Data..sp_adm_GetNewHospNum(?)}\n{call "
                                "Patient_Data..sp_aopd_GetNewOPDID(?)}\nbegin\n";

TEST(Save, SendsTheDocumentedStatementsInTheirOrderForEveryShape) {
    const struct {
        const char* name;
        const char* client;
        bool updateOnly;
        std::string expected;
    } shapes[] = {
        {"standard, full", "", false,
         std::string{similarRecords} + confinement + numbers + standardShape + standardVisit + doctors + afterCommit},
        {"standard, update only", "", true, std::string{similarRecords} + numbers + standardShape + afterCommit},
        {"RVT, full", "RVT", false,
         std::string{similarRecords} + confinement + numbers + rvtMaster + rvtVisit + doctors + afterCommit},
        {"RVT, update only", "RVT", true, std::string{similarRecords} + numbers + rvtMaster + afterCommit},
    };
    for (const auto& shape : shapes) {
        SCOPED_TRACE(shape.name);
        FormFixture desk;
        desk.globals.setClient(shape.client);
        desk.openNewPatient();
        fillWithNames(desk);
        ASSERT_TRUE(desk.form->validate());
        desk.provider->log.clear();
        desk.desktop.answer(ui::Answer::Ok);
        EXPECT_TRUE(desk.save(shape.updateOnly));
        EXPECT_EQ(desk.provider->log, shape.expected);
        EXPECT_EQ(desk.desktop.messages.back().text,
                  shape.updateOnly
                      ? "TXTLASTNAME, TXTFIRSTNAME TXTMIDDLENAME record was updated."
                      : "TXTLASTNAME, TXTFIRSTNAME TXTMIDDLENAME was registered as Hosp. # (00000012) and Case # "
                        "(26A0000007B).");
        EXPECT_FALSE(desk.desktop.isBusy());
    }
}

TEST(Save, AFailureSaysWhatIsStoredAndTheNextTryCompletesTheSameVisit) {
    const std::string lost = "The connection is lost.\r\n\r\n";
    const auto missing = [&lost](const std::string& parts) {
        return lost + "The visit is saved as Hosp. # (00000012) and Case # (26A0000007B). Still missing: " + parts +
               ". Please try again to complete it; that makes no second visit.";
    };
    const std::string uncertain = lost +
                                  "It is not certain whether this was saved. Please try again: it is saved under "
                                  "the same numbers, and cannot come twice.";
    const struct {
        const char* failing;
        std::string message;
        bool counted;         ///< the doctor's consultation, by the first try
        bool isThere = false; ///< the visit, when the next try asks for it
    } cases[] = {
        {"Patient_Data..sp_aopd_Update_tbOutpatient",
         lost + "Nothing was saved. What was typed is still here; you can try again.", false},
        {"commit", uncertain, true, true},
        {"commit", uncertain, false},
        {"commit",
         lost + "The database was asked: the visit is not there. Nothing was saved. What was typed is still here; you "
                "can try again.",
         false},
        {"Patient_Data..sp_Adm_UpdateMaster2",
         missing(
             "contacts, parents and employment, dependents, medical history, treatments, walk-in mark, file number"),
         true},
        {"Delete Patient_Data..tbMasterDependent",
         missing("dependents, medical history, treatments, walk-in mark, file number"), true},
        {"Update Patient_data..tbOutPatient set isWalkIn", missing("walk-in mark, file number"), true},
        {"Patient_data..OPD_UpdateFileNum", missing("file number"), true},
    };
    for (const auto& entry : cases) {
        const std::string failing = entry.failing;
        SCOPED_TRACE(failing);
        FormFixture desk;
        desk.globals.isAllowOPFileNumbering = true;
        desk.openNewPatient();
        desk.fillRequired();
        desk.form->fields().consultation.doctor1.code.setText("D001");
        desk.provider->failOn(failing, "The connection is lost.");
        desk.provider->commitFailure = failing == "commit" ? "The connection is lost." : "";
        const std::string question = "Select IDNum from Patient_Data..tbOutPatient where IDNum";
        if (entry.message == uncertain)
            desk.provider->failOn(question, "The server is away.");
        desk.desktop.work([&](ui::Window& window) {
            desk.desktop.answers(failing.ends_with("FileNum") ? "OO" : "O"); // the clerk was told of the visit by then
            window.click(desk.form->fields().buttons.cmdSave);
            EXPECT_EQ(desk.desktop.messages.back().text, entry.message);
            EXPECT_TRUE(window.isOpen());
            EXPECT_FALSE(desk.desktop.isBusy());
            EXPECT_EQ(desk.form->fields().header.txtLastName.text(), "DELA CRUZ");

            desk.provider->forgetRules(failing);
            desk.provider->forgetRules(question);
            desk.provider->commitFailure.clear();
            if (entry.isThere) {
                desk.provider->answer(question, oneRow({{"IDNum", "x"}}));
                desk.provider->answer("PATIENT_DATA..sp_AOPD_SearchSimilarRecords", oneRow({{"HospNum", "x"}}));
            }
            desk.provider->log.clear();
            desk.desktop.answer(ui::Answer::Ok);
            window.click(desk.form->fields().buttons.cmdSave);
            EXPECT_FALSE(window.isOpen());
            EXPECT_EQ(desk.provider->log.find("{call"), std::string::npos) << "the numbers that were drawn serve";
            EXPECT_EQ(desk.provider->log.find("DoctorConsultation 'D001'") == std::string::npos, entry.counted);
            EXPECT_NE(desk.provider->log.find("sp_aopd_Update_tbOutpatient '00000012','26A0000007B'"),
                      std::string::npos);
            EXPECT_TRUE(desk.desktop.messages.back().text.ends_with("Case # (26A0000007B)."));
        });
        desk.desktop.showModal(desk.form->window());
    }
}

TEST(Save, ACommitWhoseAnswerWasLostIsAskedAfterAndGoesOnWhenTheVisitIsThere) {
    FormFixture desk;
    desk.openNewPatient();
    desk.fillRequired();
    desk.provider->commitFailure = "The connection is lost.";
    desk.provider->answer("Select IDNum from Patient_Data..tbOutPatient where IDNum = '26A0000007B'",
                          oneRow({{"IDNum", "26A0000007B"}}));
    desk.desktop.answers("OO");
    EXPECT_TRUE(desk.save(false));
    ASSERT_EQ(desk.desktop.messages.size(), 2U);
    EXPECT_EQ(
        desk.desktop.messages[0].text,
        "The connection is lost.\r\n\r\nThe database was asked: the visit is saved as Hosp. # (00000012) and Case "
        "# (26A0000007B). What belongs to it is saved now.");
    EXPECT_NE(desk.provider->log.find("sp_Adm_UpdateMaster2"), std::string::npos);
}

TEST(Save, AStoredApostropheIsAskedAboutWhereItIsSeenAndIsAGraveAccentWhereItIsNot) {
    FormFixture desk;
    desk.openNewPatient();
    desk.fillRequired();
    registration::Fields& fields = desk.form->fields();
    fields.header.txtLastName.setText("O'NEIL', 'X");
    fields.personal.motherName.setText("ANA O'NEIL");
    fields.personal.txtCardNum.setText("C'1");
    fields.personal.txtCardNum.setVisible(false);
    fields.history.txtDiagnosis.setText("NOBODY'S");
    desk.form->record().Findings = "BAKER'S CYST";
    desk.form->record().DiagnosisID = {"D'1", "", ""};
    fields.employment.mshDependents.setCell(1, 0, "L'O");
    fields.employment.mshDependents.setCell(1, 1, "04/18/2001");
    fields.employment.mshDependents.setCurrentCell(1, 1);
    desk.provider->log.clear();
    desk.desktop.work([&](ui::Window& window) {
        const auto answers = [&](std::initializer_list<ui::Answer> all) {
            for (const ui::Answer answer : all)
                desk.desktop.answer(answer);
            window.click(fields.buttons.cmdSave);
        };
        answers({ui::Answer::No});
        EXPECT_EQ(desk.desktop.messages.back().text,
                  "Last Name holds an apostrophe, which cannot be stored from this desk. Store it as O`NEIL`, `X?");
        EXPECT_EQ(window.focus(), &fields.header.txtLastName);
        EXPECT_FALSE(fields.header.txtLastName.refusal().empty());
        window.edited(fields.header.txtLastName, "ONEIL");
        EXPECT_TRUE(fields.header.txtLastName.refusal().empty());
        answers({ui::Answer::Yes, ui::Answer::No});
        EXPECT_EQ(window.focus(), &fields.employment.mshDependents);
        EXPECT_EQ(fields.employment.mshDependents.currentColumn(), 0) << "where the name is";
        EXPECT_EQ(desk.provider->log, ""); // nothing is written, drawn or looked up before all is settled
        answers({ui::Answer::Yes, ui::Answer::Ok});
        EXPECT_FALSE(window.isOpen());
    });
    desk.desktop.showModal(desk.form->window());
    EXPECT_TRUE(desk.desktop.allAnswersGiven());
    for (const char* sent : {"'ONEIL'", "'ANA O`NEIL'", "'C`1'", "'BAKER`S CYST'", "'D`1'", "'L`O', '04/18/2001'"})
        EXPECT_NE(desk.provider->log.find(sent), std::string::npos) << sent;
}

TEST(Save, WritesToTheNumbersThatTheFormWasOpenedForAndToNoOthers) {
    for (const bool ofVisit : {false, true}) {
        FormFixture desk;
        if (ofVisit)
            desk.desktop.answer(ui::Answer::Ok),
                desk.open("Edit", "00000001", "26A0000007B"); // whose visit the database does not have
        else
            desk.openNewPatient();
        desk.fillRequired();
        registration::HeaderFields& header = desk.form->fields().header;
        EXPECT_TRUE(header.txtHospNum.readOnly && header.txtOPDNum.readOnly && header.txtAge.readOnly);
        header.txtHospNum.setText(ofVisit ? "00000001" : "00000012");
        desk.provider->log.clear();
        EXPECT_THROW(desk.save(false), ado::Error);
        EXPECT_EQ(desk.provider->log, "");
    }
}

TEST(Save, AKeyWithAnApostropheIsNotOpenedAndAnyOtherCodeWithOneIsJustUnknown) {
    for (const auto& [hospNum, visit] : {std::pair{"0000'1", "26A0000007B"}, std::pair{"00000001", "26'7B"}}) {
        FormFixture desk;
        desk.provider->log.clear();
        try {
            desk.open("Edit", hospNum, visit);
            ADD_FAILURE() << "opened " << hospNum << " " << visit;
        } catch (const ado::Error& error) {
            EXPECT_NE(std::string{error.what()}.find("holds an apostrophe"), std::string::npos) << error.what();
        }
        EXPECT_EQ(desk.provider->log, "");
    }
    FormFixture desk;
    desk.openNewPatient();
    desk.form->record().CompanyClass = "P";
    desk.provider->log.clear();
    registration::LoadAccountClass(desk.session, desk.form->record(), "O'X");
    EXPECT_EQ(registration::GetPayCode(desk.session, "P'1") + registration::GetBarangayName(desk.session, "B'1"), "");
    EXPECT_EQ(desk.provider->log + desk.form->record().CompanyClass, "P");
}

TEST(Save, WhatIsRefusedOrHasNoNumberWritesAndPrintsNothing) {
    const ado::ResultSet someone = oneRow({{"HospNum", "00000001"}});
    const char* const confined = "PATIENT_DATA..sp_AOPD_CheckIfAdmitted";
    const std::string none = "\r\n\r\nThe database gave no number.\r\n\r\nNothing was saved.";
    const struct {
        const char* rule;
        bool registersInpatients, opensPatientClass;
        const char* answers;
        std::string lastMessage; ///< the beginning
        bool closesForm, draws = false, writes = false;
        const char* emptyNumber = ""; ///< one that the database does not give
    } cases[] = {
        {"PATIENT_DATA..sp_AOPD_SearchSimilarRecords", false, false, "NO", "Registration Cancelled.", true},
        {confined, false, false, "O", "Cannot register currently confined patients", true},
        {confined, true, false, "O", "DELA CRUZ, ", true, true, true},
        {"nothing", false, true, "O", "Cannot register patient! Please provide patient classification.", false},
        {"nothing", false, false, "O", "Unable to assign a new hospnum" + none, true, true, false, "@HospNum"},
        {"nothing", false, false, "O", "Unable to assign a new OPD Number" + none, true, true, false, "@IdNum"},
    };
    for (const auto& refusal : cases) {
        SCOPED_TRACE(refusal.lastMessage);
        FormFixture desk;
        desk.globals.IsAllowOPDPatientClass = refusal.opensPatientClass;
        desk.globals.isAllowOPDRegisterInpatient = refusal.registersInpatients;
        desk.openNewPatient();
        desk.fillRequired();
        desk.provider->answer(refusal.rule, someone);
        for (auto& [name, value] : desk.provider->outputs)
            if (name == refusal.emptyNumber)
                value = "  ";
        desk.provider->log.clear();
        desk.desktop.work([&](ui::Window& window) {
            desk.desktop.answers(refusal.answers);
            window.click(desk.form->fields().buttons.cmdPrint);
            EXPECT_TRUE(desk.desktop.messages.back().text.starts_with(refusal.lastMessage));
            EXPECT_EQ(window.isOpen(), !refusal.closesForm);
        });
        desk.desktop.showModal(desk.form->window());
        EXPECT_EQ(desk.provider->log.find("{call") != std::string::npos, refusal.draws);
        EXPECT_EQ(desk.provider->log.find("begin") != std::string::npos, refusal.writes);
        EXPECT_EQ(desk.desktop.shown.back(), refusal.writes ? "frmReportViewer" : "frmRegistration");
    }
}

TEST(Save, ADataSheetThatCannotBeReadIsToldBehindTheClosedFormAndTheVisitStands) {
    FormFixture desk;
    desk.openNewPatient();
    desk.fillRequired();
    desk.form->fields().additional.cmdCapture.onClick(); // without a camera there is nothing to store
    desk.reports.failure = "The connection is lost.";
    desk.desktop.answers("OO");
    desk.desktop.work([&](ui::Window& window) {
        window.click(desk.form->fields().buttons.cmdPrint);
        EXPECT_FALSE(window.isOpen());
    });
    desk.desktop.showModal(desk.form->window());
    EXPECT_EQ(desk.desktop.messages.back().text, "The connection is lost.");
    EXPECT_FALSE(desk.desktop.isBusy());
    EXPECT_NE(desk.provider->log.find("commit\n"), std::string::npos);
}

/// All that a clerk can have put into a form, by control.
std::map<std::string, std::string> heldBy(const registration::RegistrationForm& form) {
    std::map<std::string, std::string> held;
    for (const ui::Control* control : const_cast<registration::RegistrationForm&>(form).window().everything()) {
        std::string& all = held[control->name()];
        all = control->shownText() + (control->enabled() ? "" : " disabled") + (control->visible() ? "" : " hidden");
        if (const auto* option = dynamic_cast<const ui::OptionButton*>(control))
            all += option->selected() ? " selected" : "";
        if (const auto* box = dynamic_cast<const ui::CheckBox*>(control))
            all += " " + std::to_string(box->value());
        if (const auto* grid = dynamic_cast<const ui::Grid*>(control))
            for (const ui::Grid::Row& row : grid->rows())
                for (const std::string& cell : row)
                    all += "|" + cell;
    }
    return held;
}

TEST(Save, WhatCouldNotBeSavedIsOfferedAgainWholeUntilItIsSavedOrGivenUp) {
    FormFixture desk;
    const auto press = [&](bool closes) {
        desk.desktop.work([&desk, closes](ui::Window& window) {
            window.click(desk.form->fields().buttons.cmdSave);
            EXPECT_EQ(window.isOpen(), !closes);
        });
        desk.desktop.showModal(desk.form->window());
    };
    const std::string question = "Continue with the registration of txtLastName, txtFirstName txtMiddleName that could "
                                 "not be saved?";
    desk.openNewPatient();
    fillWithNames(desk);
    desk.form->fields().additional.picPatient.setImage(std::make_shared<Image>(Image{2, 1, {1, 2, 3, 4, 5, 6}}));
    desk.form->fields().additional.txtPictureLocation.setText(""); // no photograph is written here
    desk.form->fields().additional.cmdCapture.onClick();           // without a camera the picture stays as it was
    desk.form->fields().personal.chkPatientType.setValue(2);
    desk.form->fields().tabOPD.show(2);
    desk.provider->failOn("Patient_Data..sp_aopd_GetNewOPDID", "The database is locked.");
    desk.desktop.answer(ui::Answer::Ok);
    std::map<std::string, std::string> typed;
    desk.form->window().onUnload = [&] { typed = heldBy(*desk.form); };
    press(true);
    EXPECT_TRUE(desk.desktop.messages.back().text.starts_with(
        "Unable to assign a new OPD Number\r\n\r\nThe database is locked.\r\n\r\nNothing was saved."));

    desk.open("New", "00000001", "(TO BE GENERATED)"); // another patient: nothing is asked
    desk.desktop.answer(ui::Answer::Yes);
    desk.provider->log.clear();
    desk.openNewPatient();
    EXPECT_EQ(desk.desktop.messages.back().text, question);
    EXPECT_EQ(heldBy(*desk.form), typed);
    EXPECT_EQ(desk.form->fields().additional.picPatient.image()->width, 2);
    EXPECT_TRUE(desk.form->record().PhotoTaken);
    desk.provider->forgetRules("Patient_Data..sp_aopd_GetNewOPDID");
    desk.desktop.answers("OO");
    press(true);
    EXPECT_TRUE(desk.desktop.messages.back().text.starts_with("The photograph could not be stored. "));
    EXPECT_NE(desk.provider->log.find("sp_aopd_Update_tbOutpatient '00000012','26A0000007B'"), std::string::npos);
    EXPECT_EQ(desk.provider->log.find("GetNewHospNum"), std::string::npos) << "the number that was drawn serves";
    EXPECT_NE(desk.provider->log.find("sp_Adm_SaveDependents  00000012, 'LIZA', '01/02/2015'"), std::string::npos);
    desk.openNewPatient(); // it is saved: no question
    EXPECT_EQ(desk.form->fields().header.txtLastName.text(), "");

    // Given up: by No, or by closing the form that continues it.
    for (const bool byNo : {true, false}) {
        fillWithNames(desk);
        desk.provider->failOn("Patient_Data..sp_adm_GetNewHospNum", "The database is locked.");
        desk.desktop.answer(ui::Answer::Ok);
        press(true);
        desk.desktop.answer(byNo ? ui::Answer::No : ui::Answer::Yes);
        desk.openNewPatient();
        if (!byNo) {
            desk.desktop.answer(ui::Answer::Ok);
            desk.desktop.work([&](ui::Window& window) { window.requestClose(); });
            desk.desktop.showModal(desk.form->window());
            desk.openNewPatient();
        }
        EXPECT_EQ(desk.form->fields().header.txtLastName.text(), "");
        EXPECT_TRUE(desk.globals.keptRegistrations.empty());
    }
}

TEST(Save, TellsWhoIsMeantByASimilarRecordAndAsksEvenWhereThatCannotBeRead) {
    const auto person = [](const std::string& number) {
        return std::vector<ado::Value>{number, "DELA CRUZ", "JUAN", "M", DateTime{1980, 3, 7}, "1 RIZAL", "SAN JOSE"};
    };
    ado::ResultSet namesakes{{"HospNum", "LastName", "FirstName", "MiddleName", "BirthDate", "HouseStreet", "Barangay"},
                             {person("7"), person("8")}};
    namesakes.rows.push_back({"9", "DELA CRUZ", "JUAN", {}, DateTime{1999, 1, 1}, {}, {}});
    ado::ResultSet many{{"HospNum"}, {{"7 "}}};
    for (char number = 'a'; number < 'h'; ++number)
        many.rows.push_back({std::string(1, number)});
    const std::string seven = "Hosp. # 7: DELA CRUZ, JUAN M, born 03/07/1980, 1 RIZAL, SAN JOSE";
    const std::string eight = "Hosp. # 8: DELA CRUZ, JUAN M, born 03/07/1980, 1 RIZAL, SAN JOSE";
    const struct {
        ado::ResultSet similar;
        bool fails;
        std::string detail;
    } cases[] = {
        {oneRow({{"HospNum", "8"}}), false, eight},
        {oneRow({{"Anything", "x"}}), false, seven + "\r\n" + eight}, // a server's own answer: those of the age
        {many, false, seven + "\r\nHosp. # a\r\nHosp. # b\r\nHosp. # c\r\nHosp. # d\r\nHosp. # e\r\nand 2 more"},
        {many, true, "Who that is could not be read: gone"},
    };
    for (const auto& each : cases) {
        FormFixture desk;
        desk.openNewPatient();
        desk.fillRequired();
        desk.form->fields().header.txtAge.setText("46");
        desk.provider->answer("PATIENT_DATA..sp_AOPD_SearchSimilarRecords", each.similar);
        desk.provider->answer("Select HospNum, LastName", namesakes);
        if (each.fails)
            desk.provider->failOn("Select HospNum, LastName", "gone");
        ASSERT_TRUE(desk.form->validate());
        desk.desktop.answers("YO");
        EXPECT_TRUE(desk.save(false));
        ASSERT_EQ(desk.desktop.messages.size(), 2U);
        EXPECT_EQ(desk.desktop.messages.front().detail, each.detail);
    }
}

} // namespace
} // namespace opd::tests
