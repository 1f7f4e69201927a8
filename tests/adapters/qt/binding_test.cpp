#include "adapters/qt/binder.h"
#include "adapters/qt/forms.h"
#include "tests/adapters/qt/every_window.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

#include <map>

namespace opd::qt {
namespace {

TEST(QtBinding, EveryControlHasItsWidgetAndEveryWidgetItsControl) {
    everyPage([](WindowShell&, ui::Window& window, const std::string& where) {
        QWidget form;
        ASSERT_TRUE(buildForm(window.name(), form)) << where;
        EXPECT_EQ(fromQt(differences(window, form).join('\n')), "") << where;
    });
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

TEST(QtBinding, LabelsAndTabsFollowTheModel) {
    RegistrationDesk desk;
    EXPECT_EQ(desk.widget<QLabel>("label_txtHouseStreet")->text(), "House/St.#");
    EXPECT_EQ(desk.widget<QTabWidget>("tabOPD")->tabText(3), "Diagnosis && History");
    desk.form.personal.txtBarangay.setVisible(false);
    desk.form.personal.address.setEnabled(false);
    desk.form.additional.page.setEnabled(false);
    EXPECT_FALSE(desk.widget<QLabel>("label_txtBarangay")->isVisible());
    EXPECT_FALSE(desk.hands.isEnabled(desk.form.personal.txtHouseStreet));
    EXPECT_FALSE(desk.widget<QTabWidget>("tabOPD")->isTabEnabled(1));
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
    const std::map<std::string, const char*> longest{
        {"lblTitle", "Patient Classification"},
        {"lblSTitle", "Patient Classification"},
        {"lblHospital", "Our Lady of Perpetual Help General Hospital and Medical Center"},
        {"lblCompany", "Our Lady of Perpetual Help General Hospital and Medical Center"},
        {"lblCount", "The first 1,000 of 12,345 entries are shown."},
    };
    everyPage([&](WindowShell& shell, ui::Window& window, const std::string& where) {
        shell.resize(shell.size().boundedTo({1240, 700}));
        for (ui::Control* control : window.everything())
            if (const auto caption = longest.find(control->name()); caption != longest.end())
                control->setCaption(caption->second);
        hands::settle();
        EXPECT_EQ(clippedIn(shell), "") << where;
    });
}

// Fifty thousand rows stand for a very common surname in a large hospital.
TEST(QtBinding, ALongListIsReadAsFarAsItIsSeenAndWalkedAtItsEnd) {
    SearchDesk desk;
    int asked = 0;
    desk.form.gridPatientList.showLater(ui::gridColumns("|<Last Name |<Number ", {0, 2000, 1000}),
                                        {50000, [&asked](int row, int column) {
                                             ++asked;
                                             return column == 1 ? std::string{"CRUZ"} : std::to_string(row);
                                         }});
    hands::settle();
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 2000) << "cells that nobody sees are made texts";
    EXPECT_EQ(desk.hands.rowCount(desk.form.gridPatientList), 50000);
    EXPECT_EQ(desk.hands.cell(desk.form.gridPatientList, 50000, 2), "50000");
    desk.hands.pickCell(desk.form.gridPatientList, 40000, 1);
    desk.press("Down");
    EXPECT_EQ(desk.form.gridPatientList.currentRow(), 40001);
}

} // namespace
} // namespace opd::qt
