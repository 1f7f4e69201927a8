#include "tests/adapters/qt/desk.h"

#include <QLabel>

namespace opd::qt {
namespace {

const QColor refusalColour(0xb3, 0x26, 0x1e);

/// The colour of a widget's frame, half way down its left edge.
QColor frameColour(RegistrationDesk& desk, const char* name) {
    auto* widget = desk.widget<QWidget>(name);
    return widget->grab().toImage().pixelColor(1, widget->height() / 2);
}

TEST(QtRefusal, ARefusedFieldIsFramedWhateverItsKindUntilTheRefusalIsTakenBack) {
    RegistrationDesk desk;
    const std::vector<std::pair<ui::Control*, const char*>> fields{
        {&desk.form.header.txtLastName, "txtLastName"},
        {&desk.form.header.txtBirthDate, "txtBirthDate"},
        {&desk.form.header.dtpAdmDate, "dtpAdmDate"},
        {&desk.form.personal.cboCivilStatus, "cboCivilStatus"},
    };
    for (const auto& [field, name] : fields) {
        EXPECT_NE(frameColour(desk, name), refusalColour) << name;
        field->setRefusal("Not <this> one.");
        EXPECT_EQ(frameColour(desk, name), refusalColour) << name;
        EXPECT_TRUE(desk.widget<QWidget>(name)->toolTip().contains("Not &lt;this&gt; one.")) << name;
        desk.form.setFocus(*field);
        hands::settle();
        EXPECT_EQ(frameColour(desk, name), refusalColour) << name << " with the focus";
        const QSize refused = desk.widget<QWidget>(name)->size();
        field->setRefusal("");
        hands::settle();
        EXPECT_NE(frameColour(desk, name), refusalColour) << name;
        EXPECT_EQ(desk.widget<QWidget>(name)->toolTip(), "") << name;
        EXPECT_EQ(desk.widget<QWidget>(name)->size(), refused) << "nothing moves under the clerk's eyes";
    }
}

// The form may have refused a field while it was loading, before anybody could see it.
TEST(QtRefusal, WhatIsRefusedBeforeTheWindowIsShownIsSeenWhenItIs) {
    samples::RegistrationWindow form;
    form.onLoad = [&] {
        form.header.txtLastName.setRefusal("A last name is needed.");
        form.setFocus(form.header.txtLastName);
    };
    QtDesktop desktop;
    desktop.show(form);
    EXPECT_EQ(fromQt(desktop.currentShell()->findChild<QLabel*>("statusLine")->text()), "A last name is needed.");
    EXPECT_TRUE(desktop.currentShell()->findChild<QWidget*>("txtLastName")->property("refused").toBool());
}

} // namespace
} // namespace opd::qt
