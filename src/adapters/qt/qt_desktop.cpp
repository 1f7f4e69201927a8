#include "adapters/qt/qt_desktop.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/hands.h"
#include "adapters/qt/message_box.h"
#include "adapters/qt/spoken_roles.h"
#include "adapters/qt/style.h"
#include "adapters/qt/window_shell.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QStandardPaths>

#include <utility>

namespace opd::qt {

namespace {

std::optional<std::filesystem::path> fileChosenByClerk(const ui::FileQuestion& question, QWidget* window) {
    QFileDialog dialog(window, toQt(question.caption),
                       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), toQt(question.kind));
    dress(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const std::filesystem::path suggested = question.suggestedName;
    dialog.setDefaultSuffix(toQt(suggested.extension().string()).remove('.'));
    dialog.selectFile(toQt(question.suggestedName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return fromQt(dialog.selectedFiles().first());
}

} // namespace

QtDesktop::QtDesktop(script::Player* player, ui::WindowPlaces* places)
    : m_player(player), m_places(places), m_output(player != nullptr, [this] { return currentShell(); }) {
    nameSpokenRoles();
    qApp->installEventFilter(&m_activation);
    qApp->installEventFilter(&m_input);
    if (m_player == nullptr && QGuiApplication::platformName() == QStringLiteral("xcb")) {
        m_typeAhead = std::make_unique<TypeAhead>();
        qApp->installEventFilter(m_typeAhead.get());
    }
    qApp->installEventFilter(&m_heldKeys);
    qApp->installEventFilter(&m_waiting); // installed last, asked first
}

QtDesktop::~QtDesktop() {
    setBusy(false);
    closeEverything();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtDesktop::showModal(ui::Window& window) {
    if (open(window, true) == nullptr)
        return;
    while (window.isOpen())
        handleInput();
}

void QtDesktop::show(ui::Window& window) {
    open(window, false);
}

void QtDesktop::waitForWindows() {
    while (!m_shells.empty())
        handleInput();
}

WindowShell* QtDesktop::open(ui::Window& window, bool modal) {
    if (m_over) {
        window.unload();
        return nullptr;
    }
    window.load();
    std::unique_ptr<WindowShell> owned = m_stock.take(window.name());
    owned->bindTo(window, m_places);
    WindowShell* const served = modal ? currentShell() : nullptr;
    WindowShell* const shell = owned.release(); // it deletes itself when the window is unloaded
    m_shells.push_back(shell);
    QObject::connect(shell, &WindowShell::gone, &m_activation, [this, shell] {
        std::erase(m_shells, shell);
        if (m_typeAhead != nullptr)
            m_typeAhead->begin(); // before the display takes the window away
    });
    if (m_typeAhead != nullptr)
        m_typeAhead->takeIn();
    shell->present(modal, served);
    m_stock.prepareSoon();
    if (m_player != nullptr && shell->isOpen())
        hands::waitUntilActive(*shell); // a display moves and sizes a window a while after it was asked to
    return shell;
}

void QtDesktop::handleInput() {
    if (m_player != nullptr)
        playOn();
    else
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtDesktop::playOn() {
    hands::settle();
    if (m_player->ended())
        giveUp();
    else if (!m_shells.empty())
        m_player->step(m_driver);
}

void QtDesktop::giveUp() {
    m_over = true;
    closeEverything();
}

void QtDesktop::closeEverything() {
    // Unloading one window may unload or open others, so the list is looked at anew each time.
    while (!m_shells.empty())
        m_shells.back()->model().unload();
}

ui::Answer QtDesktop::ask(const ui::Message& message) {
    if (m_over)
        return ui::escapeAnswer(message.buttons);
    const bool wasBusy = std::exchange(m_busy, false);
    if (wasBusy)
        QApplication::restoreOverrideCursor();
    QMessageBox box(currentShell());
    fill(box, message);
    if (m_typeAhead != nullptr)
        for (const QAbstractButton* button : box.buttons()) // before the display takes the box away
            QObject::connect(button, &QAbstractButton::released, &box, [this] { m_typeAhead->begin(); });
    int answer = static_cast<int>(QMessageBox::NoButton);
    if (m_player == nullptr)
        answer = box.exec();
    else if (answerByScript(box, message))
        answer = box.standardButton(box.clickedButton());
    if (wasBusy)
        setBusy(true);
    return answer == QMessageBox::NoButton ? ui::escapeAnswer(message.buttons) : answerOf(answer);
}

bool QtDesktop::answerByScript(QMessageBox& box, const ui::Message& message) {
    box.setWindowModality(Qt::ApplicationModal);
    box.open();
    hands::settle();
    if (const std::optional<ui::Answer> answer = m_player->answerTo(message)) {
        QAbstractButton* const button = buttonOf(box, *answer);
        if (button != nullptr)
            hands::click(*button, button->rect().center());
        hands::settle();
        return box.clickedButton() != nullptr;
    }
    box.done(QMessageBox::NoButton);
    giveUp();
    return false;
}

std::optional<std::filesystem::path> QtDesktop::askFile(const ui::FileQuestion& question) {
    if (m_over)
        return std::nullopt;
    if (m_player == nullptr)
        return fileChosenByClerk(question, currentShell());
    std::optional<std::filesystem::path> file = m_player->fileFor(question);
    if (!file)
        giveUp();
    return file;
}

void QtDesktop::beep() {
    QApplication::beep();
}

void QtDesktop::setBusy(bool busy) {
    if (busy == m_busy)
        return;
    m_busy = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtDesktop::workEnded() {
    if (m_player != nullptr)
        m_player->end();
}

std::optional<std::string> QtDesktop::failure() const {
    return m_player == nullptr ? std::nullopt : m_player->failure();
}

WindowShell* QtDesktop::currentShell() const {
    return m_shells.empty() ? nullptr : m_shells.back();
}

} // namespace opd::qt
