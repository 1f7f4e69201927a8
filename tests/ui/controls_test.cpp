#include "form.h"

#include <gtest/gtest.h>

namespace opd::ui {
namespace {

using Names = std::vector<std::string>;

struct Shown {
    Window window{"w", "W"};
    RecordingView view;
    int changes = 0;
    std::function<void()> count = [this] { ++changes; };

    Shown() {
        window.load();
        window.opened(view);
    }
};

TEST(MaskedBox, HoldsWhatFitsTheMaskAndIsBlankOtherwise) {
    Shown shown;
    MaskedBox box{shown.window, "date"};
    const auto holds = [&](const char* text) {
        box.setText("01/01/2000");
        box.setText(text);
        EXPECT_EQ(box.isBlank(), box.text() == blankDateText) << text;
        return box.text();
    };
    for (const char* fits : {"03/07/1980", "  /  /    ", "0 /  /198 ", " 3/ 7/1980", "99/99/9999"})
        EXPECT_EQ(holds(fits), fits);
    for (const char* fails :
         {"", "3/7/1980", "03-07-1980", "03/07/19800", "0a/07/1980", "03/07/80", "03071980  ", "ñ3/07/198"})
        EXPECT_EQ(holds(fails), blankDateText) << fails;
    EXPECT_EQ(holds("03/07/1980"), "03/07/1980");
    box.setMask("", 64);
    EXPECT_EQ(box.text(), "") << "a change of the mask empties the box";
    EXPECT_EQ(holds("PEÑA, ANA"), "PEÑA, ANA");
}

TEST(Fields, TellAChangeOnceAndNotWhenNothingChanges) {
    Shown shown;
    TextBox text{shown.window, "text", "", 3};
    MaskedBox date{shown.window, "date"};
    DatePicker time{shown.window, "time", "", DatePicker::Format::Time};
    for (Control* control : std::vector<Control*>{&text, &date, &time})
        control->onChange = shown.count;
    for (int i = 0; i < 2; ++i) {
        text.setText("longer than typed");
        date.setText("03/07/1980");
        time.setValue({2026, 1, 1, 14, 5, 0});
        EXPECT_EQ(shown.changes, 3);
    }
    EXPECT_EQ(text.text(), "longer than typed") << "a text set by program is never cut";
    EXPECT_EQ(shown.view.aspects, std::vector<Aspect>(3, Aspect::Text));
    date.clear();
    date.setText("no date");
    EXPECT_EQ(shown.changes, 4);
}

TEST(ComboBox, TextAndEntryFollowEachOther) {
    Shown shown;
    ComboBox box{shown.window, "box", "", {"", "MALE", "FEMALE", "MALE"}};
    box.onChange = shown.count;
    box.setText("FEMALE");
    EXPECT_EQ(box.index(), 2);
    box.setText("OTHER");
    EXPECT_EQ(box.text(), "OTHER");
    EXPECT_EQ(box.index(), -1) << "a text that is no entry is shown all the same";
    box.select(3);
    EXPECT_EQ(box.text(), "MALE");
    EXPECT_EQ(box.index(), 3) << "entries that read alike keep their places";
    box.setText("");
    EXPECT_EQ(box.index(), 0);
    EXPECT_EQ(shown.changes, 4);
    EXPECT_THROW(box.select(4), std::out_of_range);
    box.add("X");
    box.onClick = shown.count;
    shown.window.picked(box, 4);
    EXPECT_EQ(box.text(), "X");
    EXPECT_EQ(shown.changes, 6) << "a pick is a change and a click";
    shown.window.picked(box, 4);
    EXPECT_EQ(shown.changes, 7) << "picking the same entry is a click alone";
}

TEST(CheckBox, LeavesTheGreyStateCheckedAndAValueSetByProgramIsNoClick) {
    Shown shown;
    CheckBox box{shown.window, "box", "Box"};
    box.onClick = shown.count;
    box.setValue(2);
    EXPECT_FALSE(box.checked());
    EXPECT_EQ(shown.changes, 0);
    box.clicked();
    EXPECT_EQ(box.value(), 1);
}

TEST(Grid, ShowsRowsAndTellsWhichIsCurrent) {
    Shown shown;
    Grid grid{shown.window, "grid"};
    Names rows;
    grid.onRowChange = [&] { rows.push_back(grid.shownText()); };
    grid.show(gridColumns("<Name|>Age", {}), {{"ANA", "30"}, {"BEN"}});
    EXPECT_EQ(grid.currentRow(), 1);
    shown.window.pickedCell(grid, 2, 0);
    shown.window.pickedCell(grid, 2, 0);
    shown.window.pickedCell(grid, 3, 0);
    shown.window.pickedCell(grid, -1, 0);
    EXPECT_EQ(rows, (Names{"ANA", "BEN"}));
    EXPECT_EQ(grid.cell(1, 1), "30");
    for (const auto& [row, column] : std::vector<std::pair<int, int>>{{0, 0}, {3, 0}, {2, 1}, {1, -1}, {-1, 0}})
        EXPECT_EQ(grid.cell(row, column), "") << row << ", " << column;
    grid.clear();
    EXPECT_EQ(grid.currentRow(), 0);
    EXPECT_EQ(grid.columns().size(), 2U);
    grid.show(grid.columns(), {{"CARL"}});
    EXPECT_EQ(rows.back(), "CARL") << "the first row of a new table is told although it was row 1 before";
}

TEST(Grid, AsksForTheCellsOfALongAnswerAndTakesThemOverBeforeTheyChange) {
    Shown shown;
    Grid grid{shown.window, "grid"};
    int asked = 0;
    grid.showLater(gridColumns("Name|Born", {}), {3, [&asked](int row, int column) {
                                                      ++asked;
                                                      return std::to_string(10 * row + column);
                                                  }});
    EXPECT_EQ(grid.rowCount(), 3);
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(grid.cell(2, 1) + grid.cell(4, 0) + grid.cell(0, 0) + grid.cell(1, 2), "21");
    EXPECT_EQ(grid.row(3), (Grid::Row{"30", "31"}));
    EXPECT_THROW(grid.row(4), std::out_of_range);
    grid.setCell(2, 0, "BEN");
    grid.removeRow(1);
    EXPECT_EQ(grid.rows(), (std::vector<Grid::Row>{{"BEN", "21"}, {"30", "31"}}));
    grid.clear();
    EXPECT_EQ(grid.rowCount(), 0);
}

TEST(Grid, KeepsItsCurrentRowWhileOthersAreRemoved) {
    Shown shown;
    Grid grid{shown.window, "grid"};
    grid.show(gridColumns("Name|Born", {}), {{"ANA"}, {"BEN"}, {"CARL"}});
    shown.window.pickedCell(grid, 2, 1);
    grid.onRowChange = shown.count;
    grid.removeRow(1);
    EXPECT_EQ(grid.shownText(), "BEN") << "the current row is the same, whatever its number";
    EXPECT_EQ(shown.changes, 0);
    grid.removeRow(1);
    EXPECT_EQ(grid.shownText(), "CARL") << "the row behind takes the place of the current one";
    grid.removeRow(1);
    EXPECT_EQ(grid.currentRow(), 0);
    EXPECT_EQ(grid.addRow(), 1);
    grid.setCurrentRow(1);
    EXPECT_EQ(grid.cell(1, 0), "");
    EXPECT_EQ(shown.changes, 3);
    grid.setCell(1, 1, "2002");
    EXPECT_THROW(grid.setCell(2, 0, "X"), std::out_of_range);
}

TEST(Grid, AFormatDescribesItsColumns) {
    const std::vector<Grid::Column> columns = gridColumns("<Name |>Age|Code||<", {3000, 0});
    std::string described;
    for (const Grid::Column& column : columns)
        described += column.title + " " + std::to_string(column.width) + (column.rightAligned ? " right\n" : "\n");
    EXPECT_EQ(described, "Name 3000\nAge 0 right\nCode 1440\n 1440\n 1440\n");
}

TEST(Tabs, TellTheChangeToAUsablePageOnce) {
    Form form;
    form.tabs.onChange = form.note("changed");
    form.pageTwo.setEnabled(false);
    for (const int page : {1, 0, 2, 2})
        form.tabs.show(page);
    EXPECT_EQ(form.log, Names{"changed"});
    EXPECT_EQ(form.tabs.shownText(), "Three");
    EXPECT_TRUE(form.three.isShown() && !form.one.isShown());
}

} // namespace
} // namespace opd::ui
