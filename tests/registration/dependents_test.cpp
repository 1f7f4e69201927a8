#include "registration/form_fixture.h"

#include "ado/error.h"
#include "registration/subrecords/dependents.h"

namespace opd::tests {

namespace {

using Row = ui::Grid::Row;
using Rows = std::vector<Row>;

TEST(Dependents, AreLoadedWithOneEmptyRowAndSavedWhereTheyAreComplete) {
    FormFixture desk;
    desk.openNewPatient();
    ui::Grid& grid = desk.form->fields().employment.mshDependents;
    registration::LoadDependents(desk.session, grid, "00000012");
    EXPECT_EQ(grid.rows(), Rows(1, Row(2))) << "nothing stored leaves the grid as it was";

    ado::ResultSet stored;
    stored.columns = {"Name", "Birth"};
    stored.rows = {{"PEÑA, ANA", DateTime{2001, 5, 20}}, {"BEN", "2003-01-31"}, {"CARL", {}}};
    desk.provider->answer("Patient_Data..sp_Adm_LoadDependents '00000012'", stored);
    registration::LoadDependents(desk.session, grid, "00000012");
    EXPECT_EQ(grid.rows(), (Rows{{"PEÑA, ANA", "05/20/2001"}, {"BEN", "01/31/2003"}, {"CARL", ""}, {"", ""}}));

    grid.setCurrentCell(3, 1);
    grid.setCell(2, 0, " BEN ");
    grid.setCell(4, 1, "01/02/2004");
    grid.addRow();
    grid.setCell(5, 0, "  ");
    desk.provider->log.clear();
    registration::SaveDependents(desk.session, grid, "00000012");
    EXPECT_EQ(desk.provider->log, "begin\n"
                                  "Delete Patient_Data..tbMasterDependent where SeqNum = '00000012'\n"
                                  "Patient_Data..sp_Adm_SaveDependents  00000012, 'PEÑA, ANA', '05/20/2001' \n"
                                  "Patient_Data..sp_Adm_SaveDependents  00000012, ' BEN ', '01/31/2003' \n"
                                  "commit\n");
    EXPECT_EQ(grid.currentRow(), 1);

    grid.setCell(1, 0, "O'NEIL");
    desk.provider->log.clear();
    EXPECT_THROW(registration::SaveDependents(desk.session, grid, "00000012"), ado::Error);
    EXPECT_TRUE(desk.provider->log.ends_with("rollback\n")) << desk.provider->log;
}

} // namespace

} // namespace opd::tests
