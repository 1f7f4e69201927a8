#include "adapters/qt/binder.h"
#include "adapters/qt/forms.h"
#include "reports/web_cam_capture.h"
#include "tests/adapters/qt/desk.h"

#include <QElapsedTimer>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

namespace opd::qt {
namespace {

template <class Form> std::string differencesOf() {
    const Form window;
    QWidget form;
    if (!buildForm(window.name(), form))
        return "no form";
    return fromQt(differences(window, form).join('\n'));
}

TEST(QtBinding, EveryControlHasItsWidgetAndEveryWidgetItsControl) {
    EXPECT_EQ(differencesOf<samples::SearchWindow>(), "");
    EXPECT_EQ(differencesOf<samples::RegistrationWindow>(), "");
    EXPECT_EQ(differencesOf<samples::SearchDialog>(), "");
    EXPECT_EQ(differencesOf<samples::ChiefComplaintDialog>(), "");
    EXPECT_EQ(differencesOf<samples::PickList>(), "");
    EXPECT_EQ(differencesOf<samples::ListingWindow>(), "");
    EXPECT_EQ(differencesOf<samples::ReportViewer>(), "");
    EXPECT_EQ(differencesOf<reports::frmWebCamCapture>(), "");
}

TEST(QtBinding, AMissingAStrangeAndASpareWidgetAreReported) {
    samples::SearchWindow window;
    QWidget form;
    ASSERT_TRUE(buildForm(window.name(), form));
    delete form.findChild<QWidget*>("label_txtAge");
    form.findChild<QWidget*>("txtSSSNum")->setObjectName("txtSSS");
    form.findChild<QWidget*>("Command1_0")->setObjectName("txtAge");
    form.findChild<QLineEdit*>("txtAge")->setObjectName("Command1_0");
    QStringList found = differences(window, form);
    found.sort();
    EXPECT_EQ(fromQt(found.join('\n')), "Command1_0 must not be a QLineEdit\n"
                                        "Command1_0 shows no control\n"
                                        "no label label_txtAge\n"
                                        "no widget txtSSSNum\n"
                                        "txtAge must not be a QPushButton\n"
                                        "txtAge shows no control\n"
                                        "txtSSS shows no control");
}

TEST(QtBinding, CaptionsAndStatesComeFromTheModel) {
    RegistrationDesk desk;
    EXPECT_EQ(desk.widget<QLabel>("label_txtHouseStreet")->text(), "House/St.#");
    EXPECT_EQ(desk.widget<QTabWidget>("tabOPD")->tabText(3), "Diagnosis && History");
    EXPECT_EQ(desk.hands.shownText(desk.form.buttons.cmdSave), "&Register");
    desk.form.buttons.cmdSave.setCaption("&Update");
    desk.form.personal.txtBarangay.setVisible(false);
    desk.form.personal.address.setEnabled(false);
    desk.form.additional.page.setEnabled(false);
    EXPECT_EQ(desk.hands.shownText(desk.form.buttons.cmdSave), "&Update");
    EXPECT_FALSE(desk.widget<QLabel>("label_txtBarangay")->isVisible());
    EXPECT_FALSE(desk.hands.isShown(desk.form.personal.txtBarangay));
    EXPECT_FALSE(desk.hands.isEnabled(desk.form.personal.txtHouseStreet));
    EXPECT_FALSE(desk.widget<QTabWidget>("tabOPD")->isTabEnabled(1));
    EXPECT_FALSE(QFontInfo(desk.shell().font()).family().isEmpty());
}

/// The captions that do not fit into their widgets.
std::string clippedIn(const QWidget& shell) {
    std::string clipped;
    for (const QWidget* widget : shell.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* box = qobject_cast<const QGroupBox*>(widget);
        const bool isButton =
            qobject_cast<const QAbstractButton*>(widget) != nullptr && !widget->objectName().isEmpty();
        QFont bold = widget->font();
        bold.setBold(true);
        int needed = 0;
        if (box != nullptr)
            needed = QFontMetrics(bold).horizontalAdvance(box->title().remove('&')) + 16;
        else if ((label != nullptr && !label->wordWrap()) || isButton)
            needed = widget->sizeHint().width();
        if (widget->isVisible() && widget->width() < needed)
            clipped += fromQt(widget->objectName()) + " ";
    }
    return clipped;
}

TEST(QtBinding, NoCaptionIsClippedOnASmallScreen) {
    SearchDesk search;
    search.shell().resize(1240, 700);
    hands::settle();
    EXPECT_EQ(clippedIn(search.shell()), "");
    Desk<samples::SearchDialog> dialog;
    dialog.form.lblTitle.setCaption("Patient Classification");
    dialog.form.lblSTitle.setCaption("Patient Classification");
    dialog.form.lblHospital.setCaption("Our Lady of Perpetual Help General Hospital and Medical Center");
    hands::settle();
    EXPECT_EQ(clippedIn(dialog.shell()), "");
    Desk<samples::PickList> pickList;
    EXPECT_EQ(clippedIn(pickList.shell()), "");
    Desk<samples::ListingWindow> listing;
    listing.form.lblTitle.setCaption("Cause of Consultation");
    listing.form.lblCompany.setCaption("Our Lady of Perpetual Help General Hospital and Medical Center");
    listing.form.lblCount.setCaption("The first 1,000 of 12,345 entries are shown.");
    hands::settle();
    EXPECT_EQ(clippedIn(listing.shell()), "");
    RegistrationDesk form;
    form.form.header.txtLastName.setRefusal("A last name is needed before the patient can be registered.");
    EXPECT_LE(form.shell().minimumSizeHint().width(), 1260);
    EXPECT_LE(form.shell().minimumSizeHint().height(), 720);
    form.shell().resize(1240, 700);
    for (const ui::Page* page : form.form.tabOPD.pages()) {
        form.form.tabOPD.show(page->index());
        hands::settle();
        EXPECT_EQ(clippedIn(form.shell()), "") << page->name();
    }
}

// Fifty thousand rows stand for a very common surname in a large hospital.
TEST(QtBinding, ALongListShowsAtOnceAndKeepsItsCurrentRow) {
    SearchDesk desk;
    std::vector<ui::Grid::Row> rows;
    for (int i = 1; i <= 50000; ++i)
        rows.push_back({"", "CRUZ", std::to_string(i)});
    QElapsedTimer clock;
    clock.start();
    desk.form.gridPatientList.show(ui::gridColumns("|<Last Name |<Number ", {0, 2000, 1000}), rows);
    hands::settle();
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_EQ(desk.hands.rowCount(desk.form.gridPatientList), 50000);
    EXPECT_EQ(desk.hands.cell(desk.form.gridPatientList, 50000, 2), "50000");
    desk.hands.pickCell(desk.form.gridPatientList, 40000, 1);
    EXPECT_EQ(desk.form.gridPatientList.currentRow(), 40000);
    desk.press("Down");
    EXPECT_EQ(desk.form.gridPatientList.currentRow(), 40001);
    int opened = 0;
    desk.form.gridPatientList.onDoubleClick = [&] { ++opened; };
    desk.hands.doubleClick(desk.form.gridPatientList);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(desk.form.gridPatientList.currentRow(), 40001);
}

} // namespace
} // namespace opd::qt
