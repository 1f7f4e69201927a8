#include "tests/adapters/qt/desk.h"

#include <QClipboard>
#include <QDateTimeEdit>
#include <QInputMethodEvent>
#include <QLineEdit>

namespace opd::qt {
namespace {

/// Letters become capitals, a single quote is dropped.
void previewLetters(ui::Window& window) {
    window.onKeyPress = [](ui::KeyPress& key) {
        if (key.code == U'\'')
            key.drop();
        else
            key.code = text::upper(key.code);
    };
}

TEST(QtFields, TypedComposedAndPastedCharactersPassTheSameFilter) {
    RegistrationDesk desk;
    previewLetters(desk.form);
    desk.hands.click(desk.form.header.txtLastName);
    desk.type("o'peña");
    EXPECT_EQ(desk.hands.shownText(desk.form.header.txtLastName), "OPEÑA");

    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("ñ'"));
    QCoreApplication::sendEvent(desk.shell().focusWidget(), &composed);
    EXPECT_EQ(desk.form.header.txtLastName.text(), "OPEÑAÑ");

    QApplication::clipboard()->setText(QString::fromUtf8(" d'año\r\n"));
    script::KeyStroke paste;
    paste.character = U'v';
    paste.control = true;
    desk.hands.press(paste);
    EXPECT_EQ(desk.hands.shownText(desk.form.header.txtLastName), "OPEÑAÑDAÑO");
    EXPECT_EQ(desk.form.header.txtLastName.text(), "OPEÑAÑDAÑO");
    desk.press("Backspace");
    EXPECT_EQ(desk.form.header.txtLastName.text(), "OPEÑAÑDAÑ");
}

TEST(QtFields, TheLimitIsForTypingNotForWhatTheProgramShows) {
    RegistrationDesk desk;
    desk.form.setFocus(desk.form.header.txtAge);
    desk.type("1234");
    EXPECT_EQ(desk.form.header.txtAge.text(), "123");
    desk.form.header.txtAge.setText("FIFTY");
    EXPECT_EQ(desk.hands.shownText(desk.form.header.txtAge), "FIFTY");
    desk.press("End");
    desk.type("6");
    EXPECT_EQ(desk.form.header.txtAge.text(), "FIFTY");
}

TEST(QtFields, ADateIsTypedAsDigitsWithSlashesOrPasted) {
    SearchDesk desk;
    const auto dateAfter = [&](const std::string& keys) {
        desk.form.txtBirthDate.clear();
        desk.hands.click(desk.form.txtBirthDate);
        desk.type(keys);
        EXPECT_EQ(desk.hands.shownText(desk.form.txtBirthDate), desk.form.txtBirthDate.text());
        return desk.form.txtBirthDate.text();
    };
    EXPECT_EQ(dateAfter(""), "  /  /    ");
    EXPECT_EQ(dateAfter("03071980"), "03/07/1980");
    EXPECT_EQ(dateAfter("03/07/1980"), "03/07/1980");
    EXPECT_EQ(dateAfter("0307"), "03/07/    ");

    // A field that gets the focus by keyboard is selected whole: typing replaces what was there.
    desk.form.setFocus(desk.form.lastName);
    desk.form.setFocus(desk.form.txtBirthDate);
    desk.type("12311999");
    EXPECT_EQ(desk.form.txtBirthDate.text(), "12/31/1999");

    QApplication::clipboard()->setText("01/02/2003");
    desk.widget<QLineEdit>("txtBirthDate")->selectAll();
    script::KeyStroke paste;
    paste.character = U'v';
    paste.control = true;
    desk.hands.press(paste);
    EXPECT_EQ(desk.form.txtBirthDate.text(), "01/02/2003");
}

TEST(QtFields, AMaskedBoxChangesItsMaskWhileItIsShown) {
    SearchDesk desk;
    ui::MaskedBox& box = desk.form.txtBirthDate;
    desk.form.setFocus(box);
    desk.type("03071980");
    box.setMask("", 12);
    desk.form.setFocus(box);
    desk.type("Peña, Ana Maria");
    EXPECT_EQ(box.text(), "Peña, Ana Ma");
    desk.press("Backspace");
    EXPECT_EQ(desk.hands.shownText(box), "Peña, Ana M");
    box.setMask(ui::MaskedBox::dateMask, 10);
    EXPECT_EQ(desk.hands.shownText(box), "  /  /    ");
    desk.form.setFocus(box);
    desk.type("1231");
    EXPECT_EQ(box.text(), "12/31/    ");
    EXPECT_EQ(desk.hands.shownText(box), "12/31/    ");
}

TEST(QtFields, PickersAndListsTakeRealInput) {
    RegistrationDesk desk;
    auto& header = desk.form.header;
    desk.hands.setPicker(header.dtpAdmDate, {2024, 11, 5, 0, 0, 0});
    EXPECT_EQ(header.dtpAdmDate.text(), "11/05/2024");
    EXPECT_EQ(desk.hands.shownText(header.dtpAdmDate), "11/05/2024");
    desk.hands.setPicker(header.txtAdmTime, {2024, 11, 5, 14, 5, 0});
    EXPECT_EQ(desk.hands.shownText(header.txtAdmTime), "02:05 PM");
    EXPECT_EQ(header.txtAdmTime.text(), "02:05 PM");

    desk.form.setFocus(header.txtAdmTime);
    desk.type("0907a");
    desk.press("Tab");
    EXPECT_EQ(header.txtAdmTime.text(), "09:07 AM");
    EXPECT_EQ(desk.hands.shownText(header.txtAdmTime), "09:07 AM");

    auto& status = desk.form.personal.cboCivilStatus;
    int picked = 0;
    status.onClick = [&] { ++picked; };
    desk.hands.pickEntry(status, 2);
    EXPECT_EQ(status.text(), "Married");
    EXPECT_EQ(picked, 1);
    status.setText("Annulled");
    EXPECT_EQ(desk.hands.shownText(status), "Annulled");
    status.setText("Child");
    EXPECT_EQ(desk.hands.shownText(status), "Child");

    auto& walkIn = desk.form.personal.chkWalkIn;
    desk.hands.click(walkIn);
    EXPECT_TRUE(walkIn.checked() && desk.hands.isChecked(walkIn));
    desk.press("Space");
    EXPECT_FALSE(walkIn.checked() || desk.hands.isChecked(walkIn));
}

} // namespace
} // namespace opd::qt
