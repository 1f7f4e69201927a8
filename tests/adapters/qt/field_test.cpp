#include "tests/adapters/qt/desk.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>

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

QAccessibleInterface* accessTo(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
}

/// What a screen reader's, dictation's or form filler's text reads then, on the screen and in the model.
template <class Box> std::string afterWriting(RegistrationDesk& desk, Box& box, const char* widget, const char* text) {
    QAccessibleEditableTextInterface* content = accessTo(desk.widget<QWidget>(widget))->editableTextInterface();
    content->replaceText(0, static_cast<int>(box.text().size()), QString::fromUtf8(text));
    EXPECT_EQ(desk.hands.shownText(box), box.text());
    return box.text();
}

TEST(QtFields, WhatAssistiveProgramsWriteReachesTheModelThroughTheSameRules) {
    RegistrationDesk desk;
    auto& form = desk.form;
    previewLetters(form);
    EXPECT_EQ(afterWriting(desk, form.header.txtFirstName, "txtFirstName", "cora'zon"), "CORAZON");
    EXPECT_EQ(form.focus(), &form.header.txtFirstName) << "the clerk goes there with it";
    desk.press("Home");
    desk.type("x");
    EXPECT_EQ(desk.hands.shownText(form.header.txtFirstName), "XCORAZON");
    EXPECT_EQ(afterWriting(desk, form.consultation.systolic, "txtBP_0", "1234"), "123");
    EXPECT_EQ(afterWriting(desk, form.header.txtBirthDate, "txtBirthDate", "3/7/1980"), "3 /7 /1980");
    EXPECT_EQ(afterWriting(desk, form.header.txtLastName, "txtLastName", "luna"), "LUNA");
    EXPECT_EQ(form.header.txtBirthDate.text(), "03/07/1980") << "a date is spelled when it is left";
    EXPECT_EQ(afterWriting(desk, form.history.txtDiagnosis, "txtDiagnosis", "cou'gh\nfever"), "COUGH\r\nFEVER");

    int clicks = 0;
    for (ui::Control* choice : std::initializer_list<ui::Control*>{&form.header.male, &form.personal.chkWalkIn})
        choice->onClick = [&] { ++clicks; };
    accessTo(desk.widget<QWidget>("optSex_0"))->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(form.header.male.selected() && desk.hands.isChecked(form.header.male));
    accessTo(desk.widget<QWidget>("chkWalkIn"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(form.personal.chkWalkIn.checked() && desk.hands.isChecked(form.personal.chkWalkIn));
    EXPECT_EQ(clicks, 2);
    form.personal.cboCivilStatus.onClick = [&] { ++clicks; };
    desk.widget<QComboBox>("cboCivilStatus")->setCurrentIndex(2);
    EXPECT_EQ(form.personal.cboCivilStatus.text(), "Married");
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(afterWriting(desk, form.header.dtpAdmDate, "dtpAdmDate", "11/05/2024"), "11/05/2024");

    // A field that refuses to be left keeps the clerk, and what was written elsewhere is gone from the screen, too.
    form.header.dtpAdmDate.onValidate = [](bool& refuse) { refuse = true; };
    EXPECT_EQ(afterWriting(desk, form.header.txtFirstName, "txtFirstName", "LIGAYA"), "XCORAZON");
    desk.widget<QComboBox>("cboCivilStatus")->setCurrentIndex(1);
    EXPECT_EQ(desk.hands.shownText(form.personal.cboCivilStatus), "Married");
}

TEST(QtFields, WhatIsComposedDroppedOrPastedByTheMenuPassesTheSameFilterAndUndoIsTold) {
    RegistrationDesk desk;
    previewLetters(desk.form);
    ui::TextBox& box = desk.form.header.txtLastName;
    desk.hands.click(box);
    desk.type("peñ");
    QInputMethodEvent composed;
    composed.setCommitString("'a");
    QCoreApplication::sendEvent(desk.shell().focusWidget(), &composed);
    auto* edit = desk.widget<QLineEdit>("txtLastName");
    const auto choose = [&](const QString& caption) {
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, {}, edit->mapToGlobal(QPoint()));
        QCoreApplication::sendEvent(edit, &wanted);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions())
            if (action->text().startsWith(caption))
                action->trigger();
        menu->close();
    };
    QApplication::clipboard()->setText("o'x");
    choose("&Paste");
    EXPECT_EQ(box.text(), "PEÑAOX");
    choose("&Undo");
    EXPECT_EQ(box.text(), fromQt(edit->text()));
    EXPECT_NE(box.text(), "PEÑAOX");

    QMimeData dragged;
    dragged.setText("d'e ");
    const auto dropOn = [&](QWidget* widget) {
        QDragEnterEvent enter(QPoint(1, 4), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &enter);
        QDropEvent drop(QPointF(1, 4), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &drop);
    };
    box.setText("LUNA");
    dropOn(edit);
    EXPECT_EQ(box.text(), "DE LUNA");
    EXPECT_EQ(desk.hands.shownText(box), "DE LUNA");
    desk.form.history.complaint.setText("FEVER");
    desk.form.setFocus(desk.form.history.complaint);
    dropOn(desk.widget<QPlainTextEdit>("txtChiefComplaint_1")->viewport());
    EXPECT_EQ(desk.form.history.complaint.text(), "DE FEVER");
    EXPECT_EQ(edit->cursorPosition(), 0) << "a long name is read from its end";
}

TEST(QtFields, ADateThatAlwaysHasAValueIsTypedPastedOrPickedAndNotLeftWithWhatIsNone) {
    RegistrationDesk desk;
    ui::DatePicker& date = desk.form.header.dtpAdmDate;
    const auto enter = [&](const char* typed, const char* key) {
        desk.form.setFocus(date);
        hands::settle();
        desk.type(typed);
        desk.press(key);
        return date.text() + " shows " + desk.hands.shownText(date) + (desk.form.focus() == &date ? ", stays" : "");
    };
    date.setValue({2026, 11, 25, 14, 5, 0});
    EXPECT_EQ(enter("04302026", "Tab"), "04/30/2026 shows 04/30/2026");
    EXPECT_EQ(enter("3/7/2025", "Tab"), "03/07/2025 shows 03/07/2025");
    EXPECT_EQ(enter("02302025", "Tab"), "03/07/2025 shows 02/30/2025, stays");
    EXPECT_NE(date.refusal(), "");
    QApplication::clipboard()->setText(" 2026-05-20");
    EXPECT_EQ(enter("", "Ctrl+V"), "05/20/2026 shows 05/20/2026, stays");
    EXPECT_EQ(date.refusal(), "");
    EXPECT_EQ(enter("", "Down"), "05/19/2026 shows 05/19/2026, stays");
    desk.press("F4");
    for (const char* key : {"Tab", "Tab", "Left", "Enter"})
        desk.press(key);
    EXPECT_EQ(enter("", "Tab"), "05/18/2026 shows 05/18/2026");
    desk.form.buttons.cmdCancel.causesValidation = false;
    desk.form.cancelButton = &desk.form.buttons.cmdCancel;
    EXPECT_EQ(enter("1130", "Escape"), "05/18/2026 shows 11/30/    , stays") << "Esc asks no date";
    EXPECT_TRUE(desk.form.requestFocus(desk.form.buttons.cmdCancel));
    EXPECT_EQ(desk.hands.shownText(date), "05/18/2026");
    EXPECT_EQ(date.value().hour, 14);

    ui::DatePicker& time = desk.form.header.txtAdmTime;
    desk.form.setFocus(time);
    QApplication::clipboard()->setText("16:45");
    desk.press("Ctrl+V");
    EXPECT_EQ(time.text(), "04:45 PM");
}

TEST(QtFields, TheProgramShowsWhatCouldNotBeTyped) {
    RegistrationDesk desk;
    ui::TextBox& box = desk.form.consultation.systolic;
    box.setText("FIFTY");
    EXPECT_EQ(desk.hands.shownText(box), "FIFTY");
    desk.form.setFocus(box);
    desk.press("End");
    desk.type("6");
    EXPECT_EQ(box.text(), "FIFTY");
    desk.form.personal.cboCivilStatus.setText("Annulled");
    EXPECT_EQ(desk.hands.shownText(desk.form.personal.cboCivilStatus), "Annulled");
}

} // namespace
} // namespace opd::qt
