// Draws each window and page into a PNG file, for looking at: show_windows FOLDER [all] [dark]. With "all" nothing that
// the usual hospital never sees is hidden, with "dark" the application's own colours are those of a dark desktop.

#include "adapters/qt/message_box.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/style.h"
#include "adapters/qt/window_shell.h"
#include "reports/web_cam_capture.h"
#include "tests/adapters/qt/sample_windows.h"
#include "ui/key_card.h"

#include <QTest>

#include <functional>

using namespace opd;

namespace {

/// What the forms hide for the usual hospital.
void hideRareFields(qt::samples::SearchWindow& search, qt::samples::RegistrationWindow& form) {
    for (ui::Control* rare : std::initializer_list<ui::Control*>{
             &search.txtBirthYear, &search.cboBirthMonth, &search.cboBirthDay, &form.header.lblAdmissionStatus,
             &form.header.fraMasterFileRegistrationOnly, &form.personal.lblPaycode, &form.personal.cmbPaycodeID,
             &form.personal.cmbPaycode, &form.personal.txtBarangayID, &form.personal.barangay.lookup,
             &form.personal.txtBarangayName, &form.history.lastMenstruation, &form.buttons.cmdRevoke,
             &form.buttons.cmdUnRevoke, &form.buttons.cmdUpdate, &form.buttons.cmdEndConsultation})
        rare->setVisible(false);
}

void fillIn(qt::samples::SearchWindow& search, qt::samples::RegistrationWindow& form) {
    search.lastName.setText("DELA CRUZ");
    search.male.setSelected(true);
    search.txtBirthDate.setText("03/07/1980");
    std::vector<ui::Grid::Row> rows;
    rows.reserve(40);
    for (int i = 0; i < 40; ++i)
        rows.push_back({"DELA CRUZ", "JOSEFINO", "VILLANUEVA", "000012" + std::to_string(10 + i), "03/07/1980", "44",
                        "123 MABINI ST., BARANGAY SAN ISIDRO, QUEZON CITY"});
    search.gridPatientList.show(
        ui::gridColumns("<Last Name |<FirstName |<Middle Name |<Hosp. No. |<Birth Date |<Age |<Address ",
                        {2000, 2000, 2000, 1000, 1100, 0, 6400}),
        std::move(rows));
    form.header.txtOPDNum.setText("(TO BE GENERATED)");
    form.header.txtHospNum.setText("00001234");
    form.header.txtLastName.setText("DELA CRUZ-VILLANUEVA");
    form.header.txtFirstName.setText("MARIA CORAZON");
    form.header.female.setSelected(true);
    form.header.txtBirthDate.setText("03/07/1980");
    form.header.txtAge.setText("44");
    form.personal.town.name.setText("QUEZON CITY, METRO MANILA");
    form.personal.cboCivilStatus.setText("Single");
    form.personal.planPersonal.setSelected(true);
}

/// The rows of a reference list.
std::vector<ui::Grid::Row> entries(int count, const std::string& text, const std::string& code) {
    std::vector<ui::Grid::Row> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({"", text + " " + std::to_string(i), code + std::to_string(100 + i)});
    return rows;
}

void fillIn(qt::samples::SearchDialog& dialog, const char* format, const std::vector<int>& widths,
            std::vector<ui::Grid::Row> rows) {
    dialog.lblTitle.setCaption(dialog.caption());
    dialog.lblSTitle.setCaption(dialog.caption());
    dialog.lblHospital.setCaption("San Isidro General Hospital");
    dialog.grdDispWindow.show(ui::gridColumns(format, widths), std::move(rows));
}

void fillIn(qt::samples::PickList& list, qt::samples::ListingWindow& listing) {
    list.grdMain.show(
        ui::gridColumns("<Dumm|<Name of Doctor|>Code|<Specialization1|<Specialization 2|<Specialization 2",
                        {0, 4000, 1000, 2500, 2500, 2500}),
        {{"", "REYES, ANTONIO VILLANUEVA", "0012", "PEDIATRICS", "NEONATOLOGY", ""},
         {"", "SANTOS, MARIA LOURDES", "0113", "PEDIATRICS", "", ""}});
    listing.lblTitle.setCaption("Services");
    listing.lblCompany.setCaption("San Isidro General Hospital");
    listing.txtSearch.setText("CON");
    listing.grdListing.show(ui::gridColumns("|<Service|<Code", {200, 4150, 2000}), entries(40, "CONSULTATION", "SV"));
    listing.lblCount.setCaption("40 entries");
}

void showRefusals(qt::samples::RegistrationWindow& form) {
    form.tabOPD.show(0);
    form.header.txtBirthDate.setRefusal("The birth date lies in the future.");
    form.header.dtpAdmDate.setRefusal("The admission date lies in the future.");
    form.personal.cboCivilStatus.setRefusal("A civil status is needed.");
    form.personal.chkWalkIn.setRefusal("Not for this patient.");
    form.setFocus(form.header.txtBirthDate);
}

void showLookups(qt::QtDesktop& desktop, const std::function<void(const std::string&)>& shoot) {
    qt::samples::SearchDialog dialog;
    qt::samples::ChiefComplaintDialog complaints;
    qt::samples::PickList list;
    qt::samples::ListingWindow listing;
    fillIn(dialog, "|<Description|<Code", {200, 4150, 2000}, entries(40, "SAN ISIDRO", "B"));
    fillIn(complaints, "|<Code|<Description|", {200, 1000, 5000, 0},
           {{"", "0001", "ABDOMINAL PAIN"}, {"", "0002", "COUGH AND COLDS"}});
    complaints.imgTitle.setFrame(1);
    fillIn(list, listing);
    reports::frmWebCamCapture smile;
    qt::samples::ReportViewer viewer;
    ui::KeyCard keys{qt::samples::RegistrationWindow()};
    for (ui::Window* window :
         std::initializer_list<ui::Window*>{&dialog, &complaints, &list, &listing, &smile, &viewer, &keys}) {
        desktop.show(*window);
        shoot(window->name());
        window->unload();
    }
}

void showMessage(const QString& folder) {
    QMessageBox box;
    qt::fill(box, {.text = "This patient has a visit that was not finished yet.\r\n\r\nOpen it?",
                   .buttons = ui::Buttons::YesNoCancel,
                   .icon = ui::Icon::Question});
    box.show();
    QTest::qWait(50);
    box.grab().save(folder + "/message.png");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    qt::dress(application);
    if (QApplication::arguments().contains("dark"))
        QApplication::setPalette(QPalette(QColor(0x31, 0x36, 0x3b), QColor(0x23, 0x26, 0x29)));
    const QString folder = argc > 1 ? argv[1] : ".";
    qt::samples::SearchWindow search;
    qt::samples::RegistrationWindow form;
    if (!QApplication::arguments().contains("all"))
        hideRareFields(search, form);
    fillIn(search, form);
    qt::QtDesktop desktop;
    const auto shoot = [&](const std::string& name) {
        QTest::qWait(50);
        desktop.currentShell()->grab().save(folder + "/" + name.c_str() + ".png");
    };
    desktop.show(search);
    shoot("search");
    desktop.show(form);
    qInfo() << "least size" << desktop.currentShell()->minimumSizeHint();
    for (const ui::Page* page : form.tabOPD.pages()) {
        form.tabOPD.show(page->index());
        shoot(page->name());
    }
    showRefusals(form);
    shoot("refused");
    showLookups(desktop, shoot);
    showMessage(folder);
    return 0;
}
