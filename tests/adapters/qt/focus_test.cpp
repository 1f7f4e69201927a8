#include "tests/adapters/qt/every_window.h"

#include <functional>

namespace opd::qt {
namespace {

TEST(QtFocus, ARefusalKeepsTheFocusWhicheverWayItWouldLeave) {
    SearchDesk desk;
    ui::MaskedBox& refusing = desk.form.txtBirthDate;
    int asked = 0, clicked = 0;
    refusing.onValidate = [&](bool& refuse) {
        ++asked;
        refuse = true;
    };
    desk.form.search.onClick = [&] { ++clicked; };
    desk.form.setFocus(refusing);
    hands::settle();
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Tab", [&] { desk.press("Tab"); }},
        {"Shift+Tab", [&] { desk.press("Shift+Tab"); }},
        {"click on a button", [&] { desk.hands.click(desk.form.search); }},
        {"click on another field", [&] { desk.hands.click(desk.form.lastName); }},
        {"click on an option", [&] { desk.hands.click(desk.form.male); }},
        {"access key of a button", [&] { desk.press("Alt+s"); }},
        {"access key of a field", [&] { desk.press("Alt+l"); }},
    };
    for (const auto& [name, leave] : ways) {
        asked = 0;
        leave();
        EXPECT_EQ(asked, 1) << name;
        EXPECT_TRUE(desk.hands.hasFocus(refusing) && desk.form.focus() == &refusing) << name;
        EXPECT_EQ(clicked, 0) << name;
        EXPECT_FALSE(desk.hands.isChecked(desk.form.male)) << name;
    }
}

/// Every field stands to the right of the one before it, or below.
void expectReadByLines(const WindowShell& shell, const auto& fields) {
    QPoint last(-1, -1);
    for (ui::Control* field : fields) {
        const QWidget* widget = shell.viewOf(*field)->widget();
        if (!widget->isVisible() || field->floatsOver != nullptr)
            continue;
        const QPoint center = widget->mapTo(&shell, widget->rect().center());
        const bool sameLine = std::abs(center.y() - last.y()) < 12;
        EXPECT_TRUE(sameLine ? center.x() > last.x() : center.y() > last.y()) << field->name();
        last = center;
    }
}

// The eye goes down a page in columns of groups, and inside a group by lines; Tab must do the same.
TEST(QtFocus, TheTabOrderIsTheOrderInWhichAFormIsRead) {
    RegistrationDesk desk;
    for (const ui::Page* page : desk.form.tabOPD.pages()) {
        desk.form.tabOPD.show(page->index());
        hands::settle();
        QPoint last(-1, -1);
        int columnLeft = 0;
        for (ui::Control* member : page->members()) {
            const auto* frame = dynamic_cast<ui::Container*>(member);
            if (frame == nullptr || !frame->visible())
                continue;
            const QPoint corner = desk.shell().viewOf(*member)->widget()->mapTo(&desk.shell(), QPoint());
            EXPECT_GE(corner.x(), corner.y() > last.y() ? columnLeft : last.x() + 1) << member->name();
            if (corner.y() < last.y())
                columnLeft = corner.x();
            last = corner;
            expectReadByLines(desk.shell(), frame->members());
        }
    }
    const LookAtPage byLines = [](WindowShell& shell, ui::Window& dialog, const std::string&) {
        std::vector<ui::Control*> fields = dialog.everything();
        std::erase_if(fields, [](const ui::Control* control) { return !control->canTakeFocus(); });
        EXPECT_GE(fields.size(), 3U);
        expectReadByLines(shell, fields);
    };
    everyPageOf<samples::SearchDialog>(byLines);
    everyPageOf<samples::PickList>(byLines);
    everyPageOf<samples::ListingWindow>(byLines);
}

} // namespace
} // namespace opd::qt
