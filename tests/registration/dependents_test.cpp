#include "registration/form_fixture.h"

#include "ado/error.h"
#include "registration/subrecords/dependents.h"

namespace opd::tests {

namespace {

using Row = ui::Grid::Row;
using Rows = std::vector<Row>;

/// The registration form of a new patient, worked by a clerk's keys at the grid of dependents.
struct DependentsDesk : FormFixture {
    DependentsDesk() { openNewPatient(); }

    ui::Grid& grid() { return form->fields().employment.mshDependents; }
    ui::MaskedBox& entry() { return form->fields().employment.txtEntry; }
    ui::Window& window() { return form->window(); }

    /// Shows the form and lets the clerk work in it.
    void work(const std::function<void()>& clerk) {
        desktop.work([&](ui::Window&) { clerk(); });
        desktop.showModal(window());
        EXPECT_TRUE(desktop.allAnswersGiven());
    }

    void clickCell(int row, int column) {
        ASSERT_TRUE(window().requestFocus(grid()));
        window().pickedCell(grid(), row, column);
        window().click(grid());
    }

    /// Types over what the editor holds; a date comes with its slashes, as the mask puts them.
    void write(const std::string& text) {
        ASSERT_TRUE(isEditing());
        window().edited(entry(), text);
    }
    void enter(const std::string& text) {
        write(text);
        window().pressKey(ui::key::enter);
    }

    bool isEditing() { return window().focus() == &entry() && entry().visible(); }
    Rows rows() { return grid().rows(); }
    void show(Rows rows) { grid().show(grid().columns(), std::move(rows)); }

    std::string cell() { return std::to_string(grid().currentRow()) + "," + std::to_string(grid().currentColumn()); }
};

TEST(Dependents, AreLoadedWithOneEmptyRowAndSavedWhereTheyAreComplete) {
    DependentsDesk desk;
    registration::LoadDependents(desk.session, desk.grid(), "00000012");
    EXPECT_EQ(desk.rows(), Rows(1, Row(2))) << "nothing stored leaves the grid as it was";

    ado::ResultSet stored;
    stored.columns = {"Name", "Birth"};
    stored.rows = {{"PEÑA, ANA", DateTime{2001, 5, 20}}, {"BEN", "2003-01-31"}, {"CARL", {}}};
    desk.provider->answer("Patient_Data..sp_Adm_LoadDependents '00000012'", stored);
    registration::LoadDependents(desk.session, desk.grid(), "00000012");
    EXPECT_EQ(desk.rows(), (Rows{{"PEÑA, ANA", "05/20/2001"}, {"BEN", "01/31/2003"}, {"CARL", ""}, {"", ""}}));

    desk.grid().setCurrentCell(3, 1);
    desk.grid().setCell(2, 0, " BEN ");
    desk.grid().setCell(4, 1, "01/02/2004");
    desk.grid().addRow();
    desk.grid().setCell(5, 0, "  ");
    desk.provider->log.clear();
    registration::SaveDependents(desk.session, desk.grid(), "00000012");
    EXPECT_EQ(desk.provider->log, "begin\n"
                                  "Delete Patient_Data..tbMasterDependent where SeqNum = '00000012'\n"
                                  "Patient_Data..sp_Adm_SaveDependents  00000012, 'PEÑA, ANA', '05/20/2001' \n"
                                  "Patient_Data..sp_Adm_SaveDependents  00000012, ' BEN ', '01/31/2003' \n"
                                  "commit\n");
    EXPECT_EQ(desk.grid().currentRow(), 1);

    desk.grid().setCell(1, 0, "O'NEIL");
    desk.provider->log.clear();
    EXPECT_THROW(registration::SaveDependents(desk.session, desk.grid(), "00000012"), ado::Error);
    EXPECT_TRUE(desk.provider->log.ends_with("rollback\n")) << desk.provider->log;
}

TEST(Dependents, EnterLeadsFromNameToBirthDateToTheNextChild) {
    DependentsDesk desk;
    desk.work([&] {
        desk.clickCell(1, 0);
        EXPECT_EQ(desk.entry().maxLength(), 64);
        desk.desktop.answer(ui::Answer::Ok);
        desk.enter("  ");
        EXPECT_EQ(desk.desktop.messages.back().text, "Dependent Name is required.");
        EXPECT_EQ(desk.desktop.messages.back().caption, "Notification");
        EXPECT_EQ(desk.desktop.messages.back().icon, ui::Icon::None);
        EXPECT_TRUE(desk.isEditing());
        EXPECT_EQ(desk.window().pressKey(U'ñ'), U'Ñ') << "names are written in capitals like all names of the form";

        desk.enter("ANA");
        EXPECT_EQ(desk.cell(), "1,1");
        EXPECT_EQ(desk.entry().text(), "01/01/1900");
        for (const char32_t refused : {U'A', U' ', U'-'})
            EXPECT_EQ(desk.window().pressKey(refused), 0U);
        EXPECT_EQ(desk.window().pressKey(U'7'), U'7');
        EXPECT_EQ(desk.window().pressKey(ui::key::backspace), ui::key::backspace);
        for (const char* noDate : {"02/29/2023", "  /  /    ", "01/02/20  "}) {
            desk.desktop.answer(ui::Answer::Ok);
            desk.enter(noDate);
            EXPECT_EQ(desk.desktop.messages.back().text, "Invalid Birth Date");
            EXPECT_EQ(desk.desktop.messages.back().icon, ui::Icon::Information);
            EXPECT_TRUE(desk.isEditing());
        }
        EXPECT_EQ(desk.rows(), (Rows{{"ANA", ""}})) << "what is refused is not written";

        desk.enter("02/29/2024");
        EXPECT_EQ(desk.rows(), (Rows{{"ANA", "02/29/2024"}, {"", ""}}));
        EXPECT_EQ(desk.cell(), "2,0");
        EXPECT_TRUE(desk.isEditing());
        desk.clickCell(1, 1);
        EXPECT_EQ(desk.entry().text(), "02/29/2024");
        desk.window().pressKey(ui::key::enter);
        EXPECT_EQ(desk.rows().size(), 2U) << "a row behind the edited one is there already";
        EXPECT_EQ(desk.cell(), "2,0");
    });
}

TEST(Dependents, LeavingTheEditorTakesOverWhatWasChangedAndIsAcceptable) {
    DependentsDesk desk;
    desk.work([&] {
        desk.clickCell(1, 1);
        desk.window().pressTab(false);
        EXPECT_EQ(desk.rows(), Rows(1, Row(2))) << "the date that was only offered is nobody's birth date";
        EXPECT_FALSE(desk.entry().visible());
        EXPECT_EQ(desk.window().focus(), &desk.form->fields().buttons.cmdSave);

        desk.clickCell(1, 0);
        desk.write("ANA");
        desk.window().pressTab(true);
        EXPECT_EQ(desk.window().focus(), &desk.grid());
        desk.clickCell(1, 0);
        desk.write(" ");
        desk.clickCell(1, 1);
        EXPECT_EQ(desk.rows(), (Rows{{"ANA", ""}})) << "a blank name is not written";

        desk.write("13/01/2020");
        for (ui::Control* elsewhere :
             std::initializer_list<ui::Control*>{&desk.grid(), &desk.form->fields().buttons.cmdSave}) {
            desk.desktop.answer(ui::Answer::Ok);
            EXPECT_FALSE(desk.window().requestFocus(*elsewhere));
            EXPECT_EQ(desk.desktop.messages.back().text, "Invalid Birth Date");
            EXPECT_TRUE(desk.isEditing());
        }
        desk.desktop.answer(ui::Answer::Cancel);
        desk.window().click(desk.form->fields().buttons.cmdCancel);
        EXPECT_EQ(desk.desktop.messages.back().text, "Are you sure to close this program?") << "closing never asks";
        EXPECT_FALSE(desk.entry().visible());

        desk.clickCell(1, 1);
        desk.write(" 2/01/2020");
        desk.window().pressTab(false);
        EXPECT_EQ(desk.rows(), (Rows{{"ANA", "02/01/2020"}, {"", ""}})) << "and there is room for another child";
    });
}

TEST(Dependents, TheGridIsWorkedByKeyboardAlone) {
    DependentsDesk desk;
    desk.work([&] {
        desk.show({{"ANA", "01/01/2001"}, {"BEN", "01/01/2002"}, {"", ""}});
        desk.window().setFocus(desk.grid());
        for (const char32_t opening : {ui::key::enter, ui::key::space}) {
            EXPECT_EQ(desk.window().pressKey(opening), 0U);
            EXPECT_EQ(desk.entry().text(), "ANA");
            desk.write("CARL");
            desk.window().pressKey(ui::key::escape);
            EXPECT_EQ(desk.window().focus(), &desk.grid());
            EXPECT_FALSE(desk.entry().visible());
        }
        EXPECT_EQ(desk.grid().cell(1, 0), "ANA") << "Esc writes nothing";
        EXPECT_TRUE(desk.desktop.messages.empty()) << "and asks nothing";

        desk.window().pickedCell(desk.grid(), 2, 1);
        desk.window().pressKey(ui::key::backspace);
        EXPECT_EQ(desk.rows(), (Rows{{"ANA", "01/01/2001"}, {"", ""}}));
        EXPECT_EQ(desk.cell(), "2,1");
        desk.window().pressKey(ui::key::backspace);
        EXPECT_EQ(desk.cell(), "2,1") << "the empty row takes no dependent with it";
        desk.window().pickedCell(desk.grid(), 1, 0);
        desk.window().pressOnCell(ui::key::backspace);
        EXPECT_EQ(desk.rows(), Rows(1, Row(2)));
        desk.show({{"ANA", "01/01/2001"}});
        desk.window().pressKey(ui::key::backspace);
        EXPECT_EQ(desk.rows(), Rows(1, Row(2))) << "the only row becomes empty";
        EXPECT_EQ(desk.cell(), "1,0");
    });
}

} // namespace

} // namespace opd::tests
