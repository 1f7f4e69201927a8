#include "platform/ui/key_card.h"
#include "reports/web_cam_capture.h"
#include "tests/adapters/qt/desk.h"

#include <QAccessible>

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

std::string faultsIn(ui::Window& window) {
    QtDesktop desktop;
    desktop.show(window);
    hands::settle();
    TreeWalk names;
    names.walk(*QAccessible::queryAccessibleInterface(desktop.currentShell()));
    window.unload();
    return names.faults;
}

template <class Form> std::string faultsIn() {
    Form window;
    return faultsIn(window);
}

TEST(QtAccessibility, EveryControlOfEveryWindowHasANameOfItsOwn) {
    EXPECT_EQ(faultsIn<samples::SearchWindow>(), "");
    EXPECT_EQ(faultsIn<samples::RegistrationWindow>(), "");
    EXPECT_EQ(faultsIn<samples::SearchDialog>(), "");
    EXPECT_EQ(faultsIn<samples::ChiefComplaintDialog>(), "");
    EXPECT_EQ(faultsIn<samples::PickList>(), "");
    EXPECT_EQ(faultsIn<samples::ListingWindow>(), "");
    EXPECT_EQ(faultsIn<samples::ReportViewer>(), "");
    EXPECT_EQ(faultsIn<reports::frmWebCamCapture>(), "");
    ui::KeyCard card{samples::RegistrationWindow()};
    EXPECT_EQ(faultsIn(card), "");
}

} // namespace
} // namespace opd::qt
