#include "registration/form_fixture.h"

namespace opd::tests {

namespace {

constexpr const char* bill = "billing..sp_OPD_ComputeHospitalBill'26a1B'";
constexpr DateTime today{2026, 11, 24, 23, 0, 0};
constexpr DateTime yesterday{2026, 11, 23, 9, 0, 0};

struct Case {
    const char* name;
    bool restores;
    ado::Value hospitalBill;
    DateTime admitted;
    std::string answers;
    std::string lastMessage;
    std::string statements;
    bool closes = false;
    const char* failing = nullptr; ///< statement that fails
};

TEST(Revoke, FollowsBillDayAndAnswerAndTellsFailures) {
    const std::string sure = "Are you sure you want this patient's admission to be ";
    const std::string error = "An error has occured while ";
    const std::string asked = std::string{bill} + "\n";
    const std::string done = asked + "update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '26A1B'\n"
                                     "Patient_Data..sp_AOPD_SaveOPDRevokedLog '26A1B','CLERK','Revoked'\n";
    const std::string status = "update Patient_Data..tboutpatient set opdstatus = '' where idnum = '26A1B'\n";
    const std::string restored = status + "Patient_Data..sp_AOPD_SaveOPDRevokedLog '26A1B','CLERK','Unrevoked'\n";
    const std::string owed = "You are not allowed to revoke admissions with pending hospital bills.";
    const std::string logFails =
        error + "revoking this patient's admission. You may click on REVOKE to try again.\r\n\r\ngone\r\n\r\nThe visit "
                "is revoked by now; the log of it is missing.";
    const std::string statusFails =
        error + "un-revoking this patient's admission. You may click on UNREVOKE to try again.\r\n\r\ngone\r\n\r\n"
                "Nothing was changed.";
    const Case cases[] = {
        {"a bill", false, 0.01, today, "O", owed, asked},
        {"the bill cannot be computed", false, 0, today, "O", "gone", asked, false, bill},
        {"yesterday", false, 0, yesterday, "O", "You can only revoke admissions made today.", asked},
        {"declined", false, {}, today, "N", sure + "revoked.", asked},
        {"revoked", false, 0, today, "Y", sure + "revoked.", done, true},
        {"the log fails", false, 0, today, "YO", logFails, done, false, "Patient_Data..sp_AOPD_SaveOPDRevokedLog"},
        {"the status fails", true, 0, today, "YO", statusFails, status, false, "update Patient_Data..tboutpatient"},
        {"restored, whatever the bill", true, 5, today, "Y", sure + "Restored.", restored, true},
        {"restored too late", true, 0, yesterday, "O", "You can only un-revoke admissions made today.", ""},
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
            desk.desktop.answers(entry.answers);
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
