#include "tests/adapters/qt/desk.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <map>

namespace opd::qt {
namespace {

using namespace std::chrono_literals;

/// Does something to the message box or window that is on the screen once it is there.
void soon(std::function<void()> act) {
    QTimer::singleShot(20, qApp, std::move(act));
}

/// What a message box shows: title, text, and its buttons from left to right.
std::string contentOf(const QMessageBox& box) {
    std::map<int, QString> buttons;
    for (const QAbstractButton* button : box.buttons())
        buttons[button->x()] = button->text().remove('&');
    QStringList parts{box.windowTitle(), box.text()};
    for (const auto& [x, text] : buttons)
        parts << text;
    return fromQt(parts.join('|'));
}

TEST(QtDesktopTest, AMessageBoxShowsItsTextAndAnswersByKey) {
    using enum ui::Answer;
    using ui::Buttons;
    const struct {
        Buttons buttons;
        std::optional<ui::Answer> preset;
        const char* key;
        ui::Answer answer;
    } cases[] = {{Buttons::YesNoCancel, Cancel, "Enter", Cancel},
                 {Buttons::YesNoCancel, No, "Enter", No},
                 {Buttons::YesNoCancel, {}, "Enter", Yes},
                 {Buttons::YesNoCancel, {}, "Escape", Cancel},
                 {Buttons::YesNo, {}, "Escape", No},
                 {Buttons::OkCancel, {}, "Escape", Cancel},
                 {Buttons::Ok, {}, "Escape", Ok}};
    QtDesktop desktop;
    for (const auto& [buttons, preset, key, answer] : cases) {
        std::string seen;
        soon([&, key = key] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            seen = contentOf(*box);
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
            QCoreApplication::sendEvent(box->focusWidget(), &held);
            EXPECT_TRUE(box->isVisible()) << "a key that is held down since before answers";
            hands::press(*box, ui::keyStroke(key).value());
        });
        EXPECT_EQ(desktop.ask({"A <b>record</b>.\r\nSure?", "Verification", buttons, ui::Icon::Exclamation, preset}),
                  answer);
        if (buttons == Buttons::YesNoCancel) {
            EXPECT_EQ(seen, "Verification|A <b>record</b>.\nSure?|Yes|No|Cancel");
        }
    }
}

TEST(QtDesktopTest, AFunctionKeyThatIsHeldDownActsOnce) {
    SearchDesk desk;
    int cards = 0;
    desk.form.onHelp = [&] { ++cards; };
    for (const bool repeated : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, repeated);
        QCoreApplication::sendEvent(desk.shell().focusWidget(), &press);
    }
    EXPECT_EQ(cards, 1);
}

/// Counts how often a widget is drawn.
struct PaintCounter final : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// A slow database must not look like a crash, and nothing may come between the parts of a handler.
TEST(QtDesktopTest, AWindowDrawsItselfWhileAStatementWaitsAndTakesNothing) {
    SearchDesk desk;
    int ticks = 0, closings = 0;
    desk.form.tmrBarCode.onTick = [&] { ++ticks; };
    desk.form.onCloseRequest = [&] { ++closings; };
    desk.form.tmrBarCode.start();
    PaintCounter counter;
    desk.widget<QLineEdit>("txtName_0")->installEventFilter(&counter);
    const auto forTwoTicks = [&](const std::function<void()>& again) {
        for (QElapsedTimer time; !time.isValid() || time.elapsed() < 2L * desk.form.tmrBarCode.interval();) {
            if (!time.isValid())
                time.start();
            again();
        }
    };
    desk.form.lastName.setText("SLOW");
    QMetaObject::invokeMethod(&desk.shell(), "close", Qt::QueuedConnection);
    forTwoTicks([&] { desk.desktop.showWaiting(1s, false); });
    EXPECT_GT(counter.paints, 0);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(closings, 0);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);

    desk.desktop.endWaiting();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    forTwoTicks([] { QCoreApplication::processEvents(); });
    EXPECT_GT(ticks, 0) << "the timer goes on afterwards";
    desk.shell().close();
    EXPECT_EQ(closings, 1) << "the frame asks the window";
    EXPECT_TRUE(desk.form.isOpen());
}

// What waits long can be stopped by Esc or by the button; everything else that is typed meanwhile is taken afterwards.
TEST(QtDesktopTest, WaitingIsOfferedToBeStoppedAndKeepsWhatIsTyped) {
    SearchDesk desk;
    auto* const field = desk.widget<QLineEdit>("txtName_0");
    field->setFocus();
    const auto goesOn = [&](std::chrono::milliseconds lasted, bool mayBeGivenUp) {
        bool all = true;
        for (int time = 0; time < 3; ++time)
            all = desk.desktop.showWaiting(lasted, mayBeGivenUp) && all;
        return all;
    };
    const auto box = [&] { return desk.shell().findChild<QFrame*>("waitingBox"); };
    const auto type = [&](const std::string& key) {
        QMetaObject::invokeMethod(
            &desk.shell(), [&desk, key] { hands::press(desk.shell(), ui::keyStroke(key).value()); },
            Qt::QueuedConnection);
    };
    EXPECT_TRUE(goesOn(4900ms, true));
    EXPECT_TRUE(goesOn(60s, false)) << "it writes";
    EXPECT_EQ(box(), nullptr);
    type("q");
    EXPECT_TRUE(goesOn(5000ms, true));
    ASSERT_NE(box(), nullptr);
    EXPECT_TRUE(box()->isVisible());
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(field->text(), "");
    type("Escape");
    EXPECT_FALSE(goesOn(5100ms, true));
    desk.desktop.endWaiting();
    EXPECT_EQ(box(), nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "q");
    EXPECT_TRUE(desk.form.isOpen()) << "Esc was for the box";

    EXPECT_TRUE(goesOn(5000ms, true));
    const auto clickInBox = [&] { hands::click(*box()->findChild<QPushButton*>(), QPoint(5, 5)); };
    QMetaObject::invokeMethod(&desk.shell(), clickInBox, Qt::QueuedConnection);
    EXPECT_FALSE(goesOn(5100ms, true));
    desk.desktop.endWaiting();
}

// A script waits for the next window inside the click that closed this one, whose button is still at work then.
TEST(QtDesktopTest, WaitingForAWindowLeavesAClosedOneToItsRunningHandler) {
    SearchDesk desk;
    bool outlived = false;
    desk.form.newPatient.onClick = [&] {
        const QPointer<QWidget> shell = &desk.shell();
        desk.form.unload();
        QWidget neverShown;
        hands::waitUntilActive(neverShown);
        outlived = shell != nullptr;
    };
    desk.hands.click(desk.form.newPatient);
    EXPECT_TRUE(outlived);
}

TEST(QtDesktopTest, OpeningAndClosingHundredsOfTimesLeavesNoWidgetBehind) {
    QtDesktop desktop;
    samples::SearchWindow search;
    const auto openAndClose = [&] {
        soon([&] { search.unload(); });
        desktop.showModal(search);
    };
    openAndClose();
    desktop.prepareForms();
    hands::settle();
    const auto before = QApplication::allWidgets().size();
    for (int i = 0; i < 200; ++i) {
        QTimer::singleShot(0, qApp, [&] { search.unload(); });
        desktop.showModal(search);
    }
    hands::settle();
    EXPECT_EQ(QApplication::allWidgets().size(), before);
}

} // namespace
} // namespace opd::qt
