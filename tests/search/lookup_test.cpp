#include "support/test_session.h"

#include "search/code_search.h"
#include "search/pick_list.h"
#include "search/search_chief_complaint.h"

#include <gtest/gtest.h>

namespace opd::tests {

namespace {

ado::ResultSet rows(std::vector<std::string> columns, std::vector<std::vector<ado::Value>> values) {
    return {std::move(columns), std::move(values)};
}

const ado::ResultSet oneCode = rows({"Description", "Code"}, {{"BAGONG SILANG", "BAG01"}});
const ado::ResultSet twoCodes = rows({"Description", "Code"}, {{"BAGONG SILANG", "BAG01"}, {"BAGUMBAYAN", "BAG02"}});

TEST(CodeSearch, OneRowIsTakenAndOthersLeadToTheDialogAsEachSearchSays) {
    struct Case {
        const char* name;
        std::function<bool(search::clsSearch&)> search;
        const char* first;  ///< statement
        const char* listed; ///< statement of the dialog, null where there is none
        const char* caption;
        bool dialogWhenNone;
    };
    const Case cases[] = {
        {"barangay", [](auto& codes) { return codes.SearchBarangay("BAG"); },
         "Patient_Data..sp_Adm_SearchBarangay 'BAG'", "Patient_Data..sp_Adm_SearchBarangay 'BAG'", "Barangay", false},
        {"doctor", [](auto& codes) { return codes.SearchDoctor("CRUZ", "3"); },
         "BUILD_FILE..sp_Bui_Search_Doctor '3', 'CRUZ','','7'", "BUILD_FILE..sp_Bui_Search_Doctor '3', 'CRUZ','','6'",
         "Doctor", true},
        {"classification", [](auto& codes) { return codes.SearchAdmittingType("2"); },
         "PATIENT_DATA..sp_Adm_SearchAdmissionType '2'", "PATIENT_DATA..sp_Adm_SearchAdmissionType '2'",
         "Patient Classification", true},
        {"doctor on duty", [](auto& codes) { return codes.SearchAutoDoctor("", "3"); },
         "BUILD_FILE..sp_Bui_Search_Doctor '3', '','','5'", nullptr, "", false},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        TestSession desk;
        search::clsSearch codes(desk.session);
        desk.provider->answer(entry.first, oneCode);
        EXPECT_TRUE(entry.search(codes));
        EXPECT_EQ(codes.Code() + " " + codes.Description(), "BAG01 BAGONG SILANG");
        EXPECT_EQ(desk.provider->log, std::string{entry.first} + "\n");
        EXPECT_EQ(desk.provider->requests.back().cursorLocation, ado::CursorLocation::Client);

        // Several rows: the dialog, of which the clerk picks the second row.
        desk.provider->answer(entry.first, twoCodes);
        desk.provider->log.clear();
        if (entry.listed == nullptr) {
            EXPECT_FALSE(entry.search(codes));
            EXPECT_TRUE(desk.desktop.shown.empty());
            continue;
        }
        desk.provider->answer(entry.listed, twoCodes);
        desk.desktop.work([&](ui::Window& window) {
            EXPECT_EQ(window.caption(), entry.caption);
            const auto& columns = codes.dialog().fields().grdDispWindow.columns();
            EXPECT_EQ((std::vector{columns[0].width, columns[1].width, columns[2].width}),
                      (std::vector{200, 4150, 2000}));
            window.setFocus(codes.dialog().fields().grdDispWindow);
            window.pickedCell(codes.dialog().fields().grdDispWindow, 2, 0);
            EXPECT_EQ(codes.dialog().fields().txtSearchStr.text(), "BAGUMBAYAN");
            window.pressKey(ui::key::enter);
        });
        EXPECT_TRUE(entry.search(codes));
        EXPECT_EQ(codes.Code(), "BAG02");
        EXPECT_EQ(desk.provider->log, std::string{entry.first} + "\n" + entry.listed + "\n");

        // Cancelled: false, and the values of the last success stay.
        desk.desktop.work([&](ui::Window& window) {
            EXPECT_EQ(window.focus(), &codes.dialog().fields().txtSearchStr) << "as at the first showing";
            window.pressKey(ui::key::escape);
        });
        EXPECT_FALSE(entry.search(codes));
        EXPECT_EQ(codes.Code(), "BAG02");

        // None.
        desk.provider->answer(entry.first, rows({"Description", "Code"}, {}));
        desk.provider->answer(entry.listed, rows({"Description", "Code"}, {}));
        if (entry.dialogWhenNone)
            desk.desktop.work([&](ui::Window& window) {
                search::SearchDialogFields& fields = codes.dialog().fields();
                EXPECT_FALSE(fields.cmdSelect.enabled());
                window.pressKey(ui::key::enter); // leads on where there is nothing to select
                EXPECT_NE(window.focus(), &fields.txtSearchStr);
            });
        else
            desk.desktop.answer(ui::Answer::Ok);
        EXPECT_FALSE(entry.search(codes));
        if (!entry.dialogWhenNone) {
            EXPECT_EQ(desk.desktop.messages.back().text, "Invalid Code!");
        }
    }
}

TEST(CodeSearch, AFailureReachesTheCallerAndAQuoteIsNeverSent) {
    TestSession desk;
    search::clsSearch codes(desk.session);
    desk.provider->failOn("Patient_Data..sp_Adm_SearchBarangay 'X'", "No such procedure.");
    EXPECT_THROW(codes.SearchBarangay("X"), ado::Error);
    desk.provider->log.clear();
    EXPECT_THROW(codes.SearchBarangay("O'NEIL"), ado::Error);
    EXPECT_EQ(desk.provider->log, "");
}

TEST(ChiefComplaintDialog, SearchesWithEveryChangeOfTheTextAndNotWhileWalkingTheList) {
    TestSession desk;
    const std::string statement = "PATIENT_DATA..sp_AOPD_SearchChiefComplaint '";
    // The best match first, whatever the order that the database answers in.
    desk.provider->answer(statement, rows({"Code", "ChiefComplaint", "Hidden"}, {{"CC003", "HEAD COLD", "x"},
                                                                                 {"CC004", "SCOLDED", "COLD"},
                                                                                 {"CC002", "COLDS", "x"},
                                                                                 {"CC005", "COLD", "x"},
                                                                                 {"cold", "FEVER", "x"}}));
    search::frmSearchChiefComplaint dialog(desk.session);
    dialog.SearchMode = "CHIEFCOMPLAINT";
    dialog.SearchText = "COLD";
    desk.desktop.work([&](ui::Window& window) {
        ui::Grid& found = dialog.fields().grdDispWindow;
        EXPECT_EQ(desk.provider->log, statement + "COLD'\n");
        EXPECT_EQ(window.statusLine(), "5 records, the best match first.");
        for (const auto& [row, code] :
             {std::pair{1, "cold"}, std::pair{2, "CC005"}, std::pair{3, "CC002"}, std::pair{4, "CC003"}})
            EXPECT_EQ(found.cell(row, 1), code);
        desk.provider->log.clear();
        TestDesktop::type(window, "ab");
        EXPECT_EQ(desk.provider->log, statement + "A'\n" + statement + "AB'\n");
        window.pressArrowDown();
        EXPECT_EQ(window.focus(), &found);
        // Whatever changes the box searches (Delete and a cut reach it without a character), a key that does not leaves
        // no mark behind.
        window.setFocus(dialog.fields().txtSearchStr);
        desk.provider->log.clear();
        window.edited(dialog.fields().txtSearchStr, "");
        window.pressKey(ui::key::backspace);
        window.pressArrowDown();
        window.pickedCell(found, 5, 0);
        EXPECT_EQ(desk.provider->log, statement + "'\n");
        EXPECT_EQ(dialog.fields().txtSearchStr.text(), found.cell(5, 2));
        window.pressKey(ui::key::enter);
    });
    dialog.showModal();
    EXPECT_TRUE(dialog.Valid());
    EXPECT_EQ(dialog.ResultCode() + " " + dialog.Result(), "cold FEVER");

    // The next showing begins without a result; another mode searches nothing.
    dialog.SearchMode = "OTHER";
    desk.provider->log.clear();
    desk.desktop.work([](ui::Window& window) { window.pressKey(ui::key::escape); });
    dialog.showModal();
    EXPECT_FALSE(dialog.Valid());
    EXPECT_EQ(desk.provider->log, "");
}

TEST(PickList, TakesTheFirstDoctorOrAsksTheClerk) {
    const char* const ofService = "Build_File..global_SearchDoctor_By_Specialization '3',0";
    const char* const all = "Build_File..global_SearchDoctor_By_Specialization '',1";
    const ado::ResultSet doctors = rows({"Name", "Code", "S1", "S2", "S3"},
                                        {{"CRUZ, ANA", "D001", "A", "B", ""}, {"LIM, BEA", "D002", "A", "", ""}});
    TestSession desk;
    desk.provider->answer(ofService, doctors);
    search::frmPickList automatic(desk.session);
    automatic.InitializeForm("Doctors", "3", "CARDIOLOGY", false);
    automatic.LoadForm();
    EXPECT_TRUE(automatic.UserSelected());
    EXPECT_EQ(automatic.ReturnID() + " " + automatic.ReturnDescription(), "D001 CRUZ, ANA");
    EXPECT_TRUE(desk.desktop.shown.empty());

    desk.provider->forgetRules(ofService);
    automatic.InitializeForm("Doctors", "3", "CARDIOLOGY", false);
    automatic.LoadForm();
    EXPECT_EQ(automatic.ReturnID(), "");

    search::frmPickList asked(desk.session);
    asked.InitializeForm("Doctors", "3", "CARDIOLOGY", true);
    desk.desktop.answer(ui::Answer::No);
    asked.LoadForm();
    EXPECT_FALSE(asked.UserSelected());
    EXPECT_EQ(
        desk.desktop.messages.back().text,
        "According to the build file, there is no doctor available that performs the CARDIOLOGY service.\r\nDo you "
        "want to manually assign a doctor?");
    desk.provider->answer(all, doctors);
    desk.desktop.answer(ui::Answer::Yes);
    desk.desktop.work([&](ui::Window& window) {
        window.pickedCell(asked.fields().grdMain, 2, 0);
        window.click(asked.fields().cmdOK);
    });
    asked.LoadForm();
    EXPECT_TRUE(asked.UserSelected());
    EXPECT_EQ(asked.ReturnID(), "D002");
}

} // namespace
} // namespace opd::tests
