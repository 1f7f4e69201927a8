#include "tests/adapters/qt/desk.h"

#include <functional>

namespace opd::qt {
namespace {

/// The search window with the focus on the birth date, whose rule refuses until it is told otherwise.
struct FocusTest : testing::Test {
    SearchDesk desk;
    int asked = 0;
    int clicked = 0;
    bool refusing = true;

    FocusTest() {
        desk.form.txtBirthDate.onValidate = [this](bool& refuse) {
            ++asked;
            refuse = refusing;
        };
        desk.form.search.onClick = [this] { ++clicked; };
        desk.form.setFocus(desk.form.txtBirthDate);
        hands::settle();
    }

    bool stays() { return desk.hands.hasFocus(desk.form.txtBirthDate) && desk.form.focus() == &desk.form.txtBirthDate; }
};

TEST_F(FocusTest, ARefusalKeepsTheFocusWhicheverWayItWouldLeave) {
    const std::vector<std::pair<const char*, std::function<void()>>> ways{
        {"Tab", [this] { desk.press("Tab"); }},
        {"Shift+Tab", [this] { desk.press("Shift+Tab"); }},
        {"click on a button", [this] { desk.hands.click(desk.form.search); }},
        {"click on another field", [this] { desk.hands.click(desk.form.lastName); }},
        {"click on an option", [this] { desk.hands.click(desk.form.male); }},
        {"access key of a button", [this] { desk.press("Alt+s"); }},
        {"access key of a field", [this] { desk.press("Alt+l"); }},
    };
    for (const auto& [name, leave] : ways) {
        asked = 0;
        leave();
        EXPECT_EQ(asked, 1) << name;
        EXPECT_TRUE(stays()) << name;
        EXPECT_EQ(clicked, 0) << name;
        EXPECT_FALSE(desk.hands.isChecked(desk.form.male)) << name;
    }
}

TEST_F(FocusTest, AControlThatCausesNoValidationIsReachedWithoutAsking) {
    desk.form.close.causesValidation = false;
    int closed = 0;
    desk.form.close.onClick = [&] { ++closed; };
    desk.hands.click(desk.form.close);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(desk.hands.hasFocus(desk.form.close));
}

TEST_F(FocusTest, AnAcceptedMoveIsMadeOnceAndClicksOnce) {
    refusing = false;
    desk.hands.click(desk.form.search);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(clicked, 1);
    desk.press("Alt+s");
    EXPECT_EQ(clicked, 2);
}

// The eye goes down a page in columns of groups, and inside a group by lines; Tab must do the same.
TEST(QtFocus, TheTabOrderIsTheOrderInWhichAFormIsRead) {
    RegistrationDesk desk;
    for (const ui::Page* page : desk.form.tabOPD.pages()) {
        desk.form.tabOPD.show(page->index());
        hands::settle();
        QPoint lastFrame(-1, -1);
        int columnLeft = 0;
        for (ui::Control* member : page->members()) {
            const auto* frame = dynamic_cast<ui::Container*>(member);
            if (frame == nullptr || !frame->visible())
                continue;
            const QPoint corner = desk.shell().viewOf(*member)->widget()->mapTo(&desk.shell(), QPoint());
            if (corner.y() > lastFrame.y()) {
                EXPECT_GE(corner.x(), columnLeft) << member->name();
            } else {
                EXPECT_GT(corner.x(), lastFrame.x()) << member->name();
                if (corner.y() < lastFrame.y())
                    columnLeft = corner.x();
            }
            lastFrame = corner;
            QPoint lastField(-1, -1);
            for (ui::Control* field : frame->members()) {
                const QWidget* widget = desk.shell().viewOf(*field)->widget();
                if (!widget->isVisible() || field->floatsOver != nullptr)
                    continue;
                const QPoint center = widget->mapTo(&desk.shell(), widget->rect().center());
                const bool sameLine = std::abs(center.y() - lastField.y()) < 12;
                EXPECT_TRUE(sameLine ? center.x() > lastField.x() : center.y() > lastField.y()) << field->name();
                lastField = center;
            }
        }
    }
}

} // namespace
} // namespace opd::qt
