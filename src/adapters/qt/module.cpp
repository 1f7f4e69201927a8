#include "script/desktop_module.h"

#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/report/printing.h"
#include "adapters/qt/style.h"

#include <QApplication>
#include <QFontInfo>
#include <QRawFont>

#include <algorithm>
#include <memory>
#include <xcb/xcb.h>

namespace {

std::unique_ptr<QApplication> makeApplication();

/// The desktop together with the application it may have had to bring along.
class OwnDesktop final : public opd::ui::Desktop {
  public:
    OwnDesktop(opd::script::Player* player, opd::ui::WindowPlaces* places)
        : m_application(makeApplication()), m_desktop(player, places) {}

    void showModal(opd::ui::Window& window) override { m_desktop.showModal(window); }
    void show(opd::ui::Window& window) override { m_desktop.show(window); }
    void waitForWindows() override { m_desktop.waitForWindows(); }
    opd::ui::Answer ask(const opd::ui::Message& message) override { return m_desktop.ask(message); }
    std::optional<std::filesystem::path> askFile(const opd::ui::FileQuestion& question) override {
        return m_desktop.askFile(question);
    }
    opd::report::Output& output() override { return m_desktop.output(); }
    void beep() override { m_desktop.beep(); }
    void setBusy(bool busy) override { m_desktop.setBusy(busy); }
    bool isBusy() const override { return m_desktop.isBusy(); }
    bool showWaiting(std::chrono::milliseconds lasted, bool mayBeGivenUp) override {
        return m_desktop.showWaiting(lasted, mayBeGivenUp);
    }
    void endWaiting() override { m_desktop.endWaiting(); }
    void workEnded() override { m_desktop.workEnded(); }
    std::optional<std::string> failure() const override { return m_desktop.failure(); }

  private:
    std::unique_ptr<QApplication> m_application;
    opd::qt::QtDesktop m_desktop;
};

// Qt keeps references to both, so they must outlive the application.
int argumentCount = 1;
char programName[] = "opd-desk";
char* arguments[] = {programName, nullptr};

/// The application, dressed; null where the host has one.
std::unique_ptr<QApplication> makeApplication() {
    if (QCoreApplication::instance() != nullptr)
        return nullptr;
    auto application = std::make_unique<QApplication>(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    opd::qt::dressApplication();
    return application;
}

/// Asks whether there is a screen: without one the toolkit would end the whole process instead of failing.
class ScreenProbe {
  public:
    ScreenProbe() : m_connection(needsDisplay() ? xcb_connect(nullptr, nullptr) : nullptr) {}
    ~ScreenProbe() {
        if (m_connection != nullptr)
            xcb_disconnect(m_connection);
    }
    ScreenProbe(const ScreenProbe&) = delete;
    ScreenProbe& operator=(const ScreenProbe&) = delete;

    bool found() const { return m_connection == nullptr || xcb_connection_has_error(m_connection) == 0; }

  private:
    /// True when the toolkit will ask for an X display.
    static bool needsDisplay() {
        if (QCoreApplication::instance() != nullptr || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
            return false;
        const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
        return platform.isEmpty() || platform == "xcb";
    }

    xcb_connection_t* m_connection;
};

} // namespace

extern "C" opd::ui::Desktop* opdCreateDesktop(opd::script::Player* player, opd::ui::WindowPlaces* places) {
    // Open until the toolkit is connected too: some X servers start over when their only client leaves.
    const ScreenProbe probe;
    if (!probe.found())
        return nullptr;
    return std::make_unique<OwnDesktop>(player, places).release();
}

extern "C" void opdDestroyDesktop(opd::ui::Desktop* desktop) {
    const std::unique_ptr<opd::ui::Desktop> owned(desktop);
}

extern "C" bool opdInspectDesktop(opd::ui::DesktopInventory* found) {
    if (!ScreenProbe{}.found())
        return false;
    static const QApplication* const application = makeApplication().release(); // as long as the process, for a camera
    static_cast<void>(application);
    const QFont font = QApplication::font();
    found->font = QFontInfo(font).family().toStdString();
    const QRawFont letters = QRawFont::fromFont(font);
    const QString wanted = QStringLiteral("AZaz09Ññáü");
    found->hasLetters = letters.isValid() && std::all_of(wanted.begin(), wanted.end(), [&](QChar letter) {
                            return letters.supportsCharacter(letter);
                        });
    opd::qt::printing().listPrinters(*found);
    return true;
}
