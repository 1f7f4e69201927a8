#include "tests/adapters/qt/desk.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

namespace opd::qt {
namespace {

/// The registration form at its grid of dependents, with forty rows.
struct DependentsDesk : RegistrationDesk {
    ui::Grid& grid = form.employment.mshDependents;
    ui::MaskedBox& entry = form.employment.txtEntry;
    QTableView* table = widget<QTableView>("mshDependents");
    QLineEdit* edit = widget<QLineEdit>("txtEntry");

    DependentsDesk() {
        entry.setVisible(false);
        std::vector<ui::Grid::Row> rows;
        for (int i = 1; i <= 40; ++i)
            rows.push_back({"CHILD " + std::to_string(i), "01/02/2003"});
        grid.show(grid.columns(), rows);
        form.tabOPD.show(4);
        hands::settle();
    }

    void edits(const char* where) {
        hands::settle();
        EXPECT_TRUE(edit->isVisible()) << where;
        EXPECT_EQ(edit->geometry(), table->visualRect(table->currentIndex())) << where;
        EXPECT_TRUE(table->viewport()->rect().contains(edit->geometry())) << where;
    }
};

TEST(QtCellFloat, LiesOverTheCurrentCellWhereverThatGoesAndKeepsItsKeys) {
    DependentsDesk desk;
    desk.hands.pickCell(desk.grid, 3, 1);
    EXPECT_EQ(desk.grid.currentColumn(), 1);
    EXPECT_FALSE(desk.edit->isVisible());
    desk.entry.setVisible(true);
    desk.edits("shown");
    EXPECT_GE(desk.edit->height(), desk.edit->fontMetrics().height() + 4) << "a text would be clipped";
    desk.form.setFocus(desk.entry);
    for (const char* ofNoUseToABoxOfOneLine : {"Down", "Up", "PageDown", "Down"})
        desk.press(ofNoUseToABoxOfOneLine);
    EXPECT_EQ(desk.table->currentIndex().row(), 2) << "the table behind it took a key";
    EXPECT_TRUE(desk.hands.hasFocus(desk.entry));
    desk.grid.setCurrentCell(38, 0);
    desk.edits("another cell, out of sight so far");
    desk.grid.setCell(37, 0, "OTHER");
    desk.grid.addRow();
    desk.edits("changed cells");
    desk.table->horizontalHeader()->resizeSection(0, 120);
    desk.edits("a narrower column");
    desk.shell().resize(desk.shell().width(), desk.shell().height() - 40);
    desk.grid.setCurrentCell(41, 0);
    desk.edits("a smaller window");
    desk.grid.show(desk.grid.columns(), {{"ONLY", ""}});
    desk.edits("another table");
}

TEST(QtCellFloat, NeitherTheSpaceBelowTheRowsNorTheHeaderIsACell) {
    DependentsDesk desk;
    desk.grid.show(desk.grid.columns(), {{"ANA", ""}, {"BEN", ""}});
    desk.hands.pickCell(desk.grid, 1, 0);
    int clicks = 0;
    desk.grid.onClick = [&] { ++clicks; };
    for (QWidget* beside : {desk.table->viewport(), desk.table->horizontalHeader()->viewport()}) {
        hands::click(*beside, {20, beside->height() - 6});
        hands::settle();
        EXPECT_EQ(clicks, 0);
        EXPECT_EQ(desk.table->selectionModel()->selectedIndexes().size(), 1) << "the current cell stays marked";
    }
}

} // namespace
} // namespace opd::qt
