#include "tests/adapters/qt/desk.h"

#include <QTabWidget>

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
        {"Shift+Tab", [this] { desk.press("Tab", true); }},
        {"click on a button", [this] { desk.hands.click(desk.form.search); }},
        {"click on another field", [this] { desk.hands.click(desk.form.lastName); }},
        {"click on an option", [this] { desk.hands.click(desk.form.male); }},
        {"access key of a button", [this] { desk.pressAlt('s'); }},
        {"access key of a field", [this] { desk.pressAlt('l'); }},
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
    desk.pressAlt('s');
    EXPECT_EQ(clicked, 2);
    desk.press("Space");
    EXPECT_EQ(clicked, 3);
    desk.pressAlt('f');
    EXPECT_TRUE(desk.hands.isChecked(desk.form.female));
    desk.press("Left");
    EXPECT_TRUE(desk.hands.isChecked(desk.form.male));
    EXPECT_FALSE(desk.hands.isChecked(desk.form.female));
}

TEST(QtFocus, EnterMovesOnWhereTheWindowSaysSoAndSelectsWhatIsThere) {
    SearchDesk desk;
    desk.form.onKeyPress = [&](ui::KeyPress& key) {
        if (key.code == ui::key::enter)
            desk.form.sendTab();
    };
    desk.form.lastName.setText("CRUZ");
    EXPECT_TRUE(desk.hands.hasFocus(desk.form.txtHospNum));
    desk.press("Enter");
    EXPECT_TRUE(desk.hands.hasFocus(desk.form.lastName));
    desk.type("REYES");
    EXPECT_EQ(desk.form.lastName.text(), "REYES");
}

TEST(QtFocus, F4OpensTheLookupOfTheCodeThatHasTheFocus) {
    RegistrationDesk desk;
    int opened = 0;
    desk.form.consultation.service2.lookup.onClick = [&] { ++opened; };
    desk.form.setFocus(desk.form.consultation.service2.code);
    desk.press("F4");
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(desk.hands.hasFocus(desk.form.consultation.service2.code));
    desk.press("F4", true);
    EXPECT_EQ(opened, 1);
}

TEST(QtFocus, PagesTurnByKeyAndByMouseAndTheFocusFollows) {
    RegistrationDesk desk;
    desk.press("Tab", false, true);
    EXPECT_EQ(desk.form.tabOPD.current(), 1);
    EXPECT_EQ(desk.widget<QTabWidget>("tabOPD")->currentIndex(), 1);
    EXPECT_TRUE(desk.hands.hasFocus(*desk.form.focus()));
    desk.hands.pickPage(desk.form.tabOPD, 3);
    EXPECT_EQ(desk.form.tabOPD.current(), 3);
    EXPECT_TRUE(desk.hands.hasFocus(desk.form.history.complaint));
    desk.press("PageUp", false, true);
    EXPECT_EQ(desk.form.tabOPD.current(), 2);
    desk.form.setFocus(desk.form.personal.birthPlace);
    hands::settle();
    EXPECT_EQ(desk.widget<QTabWidget>("tabOPD")->currentIndex(), 0);
    EXPECT_TRUE(desk.hands.hasFocus(desk.form.personal.birthPlace));
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
