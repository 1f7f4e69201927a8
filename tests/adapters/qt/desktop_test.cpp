#include "tests/adapters/qt/desk.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

namespace opd::qt {
namespace {

/// Does something to the message box or window that is on the screen once it is there.
void soon(std::function<void()> act) {
    QTimer::singleShot(20, qApp, std::move(act));
}

ui::Answer answerAfter(QtDesktop& desktop, const ui::Message& message, const std::string& key,
                       std::string* seen = nullptr) {
    soon([=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        if (seen != nullptr) {
            *seen = fromQt(box->windowTitle() + "|" + box->text());
            std::vector<std::pair<int, std::string>> places;
            for (const QAbstractButton* button : box->buttons())
                places.emplace_back(button->x(), fromQt(button->text().remove('&')));
            std::sort(places.begin(), places.end());
            for (const auto& [x, text] : places)
                *seen += "|" + text;
        }
        hands::press(*box, ui::keyStroke(key).value());
    });
    return desktop.ask(message);
}

TEST(QtDesktopTest, AMessageBoxShowsItsTextAndAnswersByKey) {
    QtDesktop desktop;
    ui::Message message{"There is a <b>record</b>.\r\nAre you sure?", "Verification", ui::Buttons::YesNoCancel,
                        ui::Icon::Exclamation, ui::Answer::Cancel};
    std::string seen;
    EXPECT_EQ(answerAfter(desktop, message, "Enter", &seen), ui::Answer::Cancel);
    EXPECT_EQ(seen, "Verification|There is a <b>record</b>.\nAre you sure?|Yes|No|Cancel");
    message.defaultAnswer = ui::Answer::No;
    EXPECT_EQ(answerAfter(desktop, message, "Enter"), ui::Answer::No);
    message.defaultAnswer.reset();
    EXPECT_EQ(answerAfter(desktop, message, "Enter"), ui::Answer::Yes);
    EXPECT_EQ(answerAfter(desktop, message, "Escape"), ui::Answer::Cancel);
    message.buttons = ui::Buttons::YesNo;
    EXPECT_EQ(answerAfter(desktop, message, "Escape"), ui::Answer::No);
    message.buttons = ui::Buttons::OkCancel;
    EXPECT_EQ(answerAfter(desktop, message, "Escape"), ui::Answer::Cancel);
    message.buttons = ui::Buttons::Ok;
    EXPECT_EQ(answerAfter(desktop, message, "Escape"), ui::Answer::Ok);
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
    forTwoTicks([&] { desk.desktop.showWaiting(true); });
    EXPECT_GT(counter.paints, 0);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(closings, 0);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);

    desk.desktop.showWaiting(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    forTwoTicks([] { QCoreApplication::processEvents(); });
    EXPECT_GT(ticks, 0) << "the timer goes on afterwards";
}

// The search window gives way to the registration form and comes back afresh, all inside one of its own clicks.
TEST(QtDesktopTest, AWindowMayBeUnloadedAndShownAgainInsideItsOwnHandler) {
    QtDesktop desktop;
    samples::SearchWindow search;
    samples::RegistrationWindow form;
    QtDriver hands{desktop};
    std::vector<std::string> story;
    int loads = 0;
    search.onLoad = [&] { story.push_back("search " + std::to_string(++loads)); };
    search.onUnload = [&] { story.push_back("search gone"); };
    form.onUnload = [&] { story.push_back("form gone"); };
    search.newPatient.onClick = [&] {
        search.unload();
        soon([&] { hands.click(form.buttons.cmdCancel); });
        desktop.showModal(form);
        story.push_back("back");
        soon([&] { hands.click(search.close); });
        desktop.showModal(search);
    };
    search.close.onClick = [&] { search.unload(); };
    form.buttons.cmdCancel.onClick = [&] { form.unload(); };
    soon([&] { hands.click(search.newPatient); });
    desktop.showModal(search);
    const std::vector<std::string> expected{"search 1", "search gone", "form gone", "back", "search 2", "search gone"};
    EXPECT_EQ(story, expected);
    EXPECT_EQ(desktop.currentShell(), nullptr);
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

TEST(QtDesktopTest, TheFrameAndEscAskTheWindowAndTimersTick) {
    SearchDesk desk;
    desk.form.cancelButton = &desk.form.close;
    int asked = 0;
    desk.form.onCloseRequest = [&] { ++asked; };
    desk.form.close.onClick = [&] { asked += 10; };
    desk.shell().close();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(desk.form.isOpen());
    desk.press("Escape");
    EXPECT_EQ(asked, 11);
    int ticks = 0;
    desk.form.tmrBarCode.onTick = [&] {
        ++ticks;
        desk.form.tmrBarCode.stop();
    };
    desk.form.tmrBarCode.start();
    desk.hands.wait(300);
    EXPECT_EQ(ticks, 0);
    desk.hands.wait(900);
    EXPECT_EQ(ticks, 1);
}

TEST(QtDesktopTest, OpeningAndClosingHundredsOfTimesLeavesNoWidgetBehind) {
    QtDesktop desktop;
    samples::SearchWindow search;
    const auto openAndClose = [&] {
        soon([&] { search.unload(); });
        desktop.showModal(search);
    };
    openAndClose();
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
