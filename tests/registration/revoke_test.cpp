#include "registration/form_fixture.h"

namespace opd::tests {

namespace {

constexpr const char* bill = "billing..sp_OPD_ComputeHospitalBill'26a1B'";

struct Case {
    const char* name;
    bool restores;
    ado::Value hospitalBill;
    DateTime admitted;
    std::vector<ui::Answer> answers;
    const char* failing; ///< statement that fails, null for none
    const char* lastMessage;
    const char* statements;
    bool closes;
};

TEST(Revoke, FollowsBillDayAndAnswerAndTellsFailures) {
    const DateTime today{2026, 11, 24, 23, 0, 0};
    const DateTime yesterday{2026, 11, 23, 9, 0, 0};
    const char* const sure = "Are you sure you want this patient's admission to be revoked.";
    const char* const sureRestored = "Are you sure you want this patient's admission to be Restored.";
    const char* const asked = "billing..sp_OPD_ComputeHospitalBill'26a1B'\n";
    const char* const done = "billing..sp_OPD_ComputeHospitalBill'26a1B'\n"
                             "update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '26A1B'\n"
                             "Patient_Data..sp_AOPD_SaveOPDRevokedLog '26A1B','CLERK','Revoked'\n";
    const char* const restored = "update Patient_Data..tboutpatient set opdstatus = '' where idnum = '26A1B'\n"
                                 "Patient_Data..sp_AOPD_SaveOPDRevokedLog '26A1B','CLERK','Unrevoked'\n";
    const char* const statusAlone = "update Patient_Data..tboutpatient set opdstatus = '' where idnum = '26A1B'\n";
    const Case cases[] = {
        {"a bill",
         false,
         0.01,
         today,
         {ui::Answer::Ok},
         nullptr,
         "You are not allowed to revoke admissions with pending hospital bills.",
         asked,
         false},
        {"the bill cannot be computed", false, 0, today, {ui::Answer::Ok}, bill, "gone", asked, false},
        {"yesterday",
         false,
         0,
         yesterday,
         {ui::Answer::Ok},
         nullptr,
         "You can only revoke admissions made today.",
         asked,
         false},
        {"declined", false, {}, today, {ui::Answer::No}, nullptr, sure, asked, false},
        {"revoked", false, 0, today, {ui::Answer::Yes}, nullptr, sure, done, true},
        {"the log fails",
         false,
         0,
         today,
         {ui::Answer::Yes, ui::Answer::Ok},
         "Patient_Data..sp_AOPD_SaveOPDRevokedLog",
         "An error has occured while revoking this patient's admission. You may click on REVOKE to try "
         "again.\r\n\r\ngone\r\n\r\nThe visit is revoked by now; the log of it is missing.",
         done,
         false},
        {"the status fails",
         true,
         0,
         today,
         {ui::Answer::Yes, ui::Answer::Ok},
         "update Patient_Data..tboutpatient",
         "An error has occured while un-revoking this patient's admission. You may click on UNREVOKE to try "
         "again.\r\n\r\ngone\r\n\r\nNothing was changed.",
         statusAlone,
         false},
        {"restored, whatever the bill", true, 5, today, {ui::Answer::Yes}, nullptr, sureRestored, restored, true},
        {"restored too late",
         true,
         0,
         yesterday,
         {ui::Answer::Ok},
         nullptr,
         "You can only un-revoke admissions made today.",
         "",
         false},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        FormFixture desk;
        desk.openNewPatient();
        registration::Fields& fields = desk.form->fields();
        fields.header.txtOPDNum.setText("26a1B");
        fields.header.dtpAdmDate.setValue(entry.admitted);
        ui::Button& button = entry.restores ? fields.buttons.cmdUnRevoke : fields.buttons.cmdRevoke;
        button.setVisible(true);
        desk.provider->answer(bill, oneRow({{"HospitalBill", entry.hospitalBill}}));
        if (entry.failing != nullptr)
            desk.provider->failOn(entry.failing, "gone");
        desk.provider->log.clear();
        desk.desktop.work([&](ui::Window& window) {
            for (const ui::Answer answer : entry.answers)
                desk.desktop.answer(answer);
            window.click(button);
            EXPECT_EQ(window.isOpen(), !entry.closes);
        });
        desk.desktop.showModal(desk.form->window());
        EXPECT_EQ(desk.desktop.messages.back().text, entry.lastMessage);
        EXPECT_EQ(desk.provider->log, entry.statements);
        EXPECT_FALSE(desk.desktop.isBusy());
    }
}

} // namespace
} // namespace opd::tests
