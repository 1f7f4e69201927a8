#include "tests/adapters/qt/every_window.h"
#include "ui/spoken_names.h"

#include <QAccessible>
#include <QApplication>

#include <map>

namespace opd::qt {
namespace {

/// True for what a screen reader stops at by itself or says on the way in; layout and headings read as they stand.
bool isSpokenOf(QAccessible::Role role) {
    switch (role) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::EditableText:
    case QAccessible::ComboBox:
    case QAccessible::SpinBox:
    case QAccessible::Table:
    case QAccessible::PageTab:
    case QAccessible::PageTabList:
    case QAccessible::Grouping:
        return true;
    default:
        return false;
    }
}

/// What is wrong with the names below an object, a fault a line.
struct TreeWalk {
    std::map<std::pair<QAccessible::Role, QString>, int> met;
    std::string faults;

    void walk(QAccessibleInterface& node) {
        const QString name = node.text(QAccessible::Name);
        if (isSpokenOf(node.role())) {
            const std::string object = node.object() == nullptr ? "?" : fromQt(node.object()->objectName());
            if (name.trimmed().isEmpty() || name.contains(QStringLiteral("...")))
                faults += object + ": \"" + fromQt(name) + "\"\n";
            else if (++met[{node.role(), name}] > 1)
                faults += object + ": \"" + fromQt(name) + "\" once more\n";
        }
        for (int i = 0; i < node.childCount(); ++i)
            if (QAccessibleInterface* child = node.child(i); child != nullptr && node.role() != QAccessible::Table)
                walk(*child);
    }
};

TEST(QtAccessibility, EveryControlOfEveryWindowHasANameOfItsOwn) {
    everyPage([](WindowShell& shell, ui::Window&, const std::string& where) {
        TreeWalk names;
        names.walk(*QAccessible::queryAccessibleInterface(&shell));
        EXPECT_EQ(names.faults, "") << where;
    });
}

/// The access keys that lead to two controls, on whatever pages these are.
std::string sharedKeys(const ui::Window& window) {
    std::map<char32_t, int> met;
    std::string shared;
    for (const ui::Control* control : window.everything())
        if (const char32_t key = ui::accessKeyOf(control->caption()); key != 0 && control->visible() && ++met[key] > 1)
            shared += control->name() + "\n";
    return shared;
}

TEST(QtAccessibility, ANameIsLedByWhatItAloneWouldNotTellAndAnAccessKeyLeadsToOneControl) {
    samples::RegistrationWindow form;
    const ui::SpokenNames names(form);
    const auto spoken = [&](const ui::Control& control) { return names.of(control); };
    EXPECT_EQ(spoken(form.consultation.service1.code) + ", " + spoken(form.employment.employedYes) + ", " +
                  spoken(form.personal.fatherAddress),
              "Services 1, Employed? Yes, Father: Address");
    form.buttons.cmdRevoke.setVisible(false); // stands beside "&Update"
    form.buttons.cmdUnRevoke.setVisible(false);
    EXPECT_EQ(sharedKeys(form), "");
    EXPECT_EQ(sharedKeys(samples::SearchWindow()), "");
    EXPECT_EQ(sharedKeys(samples::ChangedMeanwhile()), "");
    EXPECT_EQ(sharedKeys(samples::ReportViewer()), "");
}

TEST(QtCalendar, APickedBirthDateComesAsATypedOneAndIsAskedAboutWhenTheBoxIsLeft) {
    RegistrationDesk desk;
    ui::MaskedBox& born = desk.form.header.txtBirthDate;
    int asked = 0;
    born.onValidate = [&](bool&) { ++asked; };
    born.setText("03/31/1980");
    desk.form.setFocus(born);
    hands::settle();
    const auto choose = [&](const char* year, const char* last) {
        desk.press("F4");
        EXPECT_NE(QApplication::activePopupWidget(), nullptr);
        desk.type(year);
        desk.press("Tab");
        desk.press("Tab");
        desk.press("Left");
        desk.press(last);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    };
    choose("1900", "Escape");
    EXPECT_EQ(born.text(), "03/31/1980");
    choose("1956", "Enter");
    EXPECT_EQ(born.text(), "03/30/1956");
    EXPECT_EQ(desk.hands.shownText(born), "03/30/1956");
    EXPECT_EQ(asked, 0);
    desk.type("12251999"); // what was picked is selected, and typing is the first way
    EXPECT_EQ(born.text(), "12/25/1999");
    desk.press("Tab");
    EXPECT_EQ(asked, 1);
}

} // namespace
} // namespace opd::qt
