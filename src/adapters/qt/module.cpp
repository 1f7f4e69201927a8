#include "platform/ui/desktop_module.h"

#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/style.h"

#include <QApplication>

#include <memory>
#include <xcb/xcb.h>

namespace {

/// The desktop together with the application it may have had to bring along.
class OwnDesktop final : public opd::ui::Desktop {
  public:
    explicit OwnDesktop(opd::script::Player* player) : m_application(makeApplication()), m_desktop(player) {}

    void showModal(opd::ui::Window& window) override { m_desktop.showModal(window); }
    void show(opd::ui::Window& window) override { m_desktop.show(window); }
    void waitForWindows() override { m_desktop.waitForWindows(); }
    opd::ui::Answer ask(const opd::ui::Message& message) override { return m_desktop.ask(message); }
    void beep() override { m_desktop.beep(); }
    void setBusy(bool busy) override { m_desktop.setBusy(busy); }
    bool isBusy() const override { return m_desktop.isBusy(); }
    std::optional<std::string> failure() const override { return m_desktop.failure(); }

  private:
    static std::unique_ptr<QApplication> makeApplication();

    std::unique_ptr<QApplication> m_application;
    opd::qt::QtDesktop m_desktop;
};

// Qt keeps references to both, so they must outlive the application.
int argumentCount = 1;
char programName[] = "opd-desk";
char* arguments[] = {programName, nullptr};

std::unique_ptr<QApplication> OwnDesktop::makeApplication() {
    if (QCoreApplication::instance() != nullptr)
        return nullptr;
    auto application = std::make_unique<QApplication>(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    opd::qt::dress(*application);
    return application;
}

/// True when the X server that DISPLAY names answers.
bool displayAnswers() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

// Without a screen the toolkit would end the whole process instead of failing.
bool hasScreen() {
    if (QCoreApplication::instance() != nullptr || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return true;
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && platform != "xcb")
        return true;
    return !qEnvironmentVariableIsEmpty("DISPLAY") && displayAnswers();
}

} // namespace

extern "C" opd::ui::Desktop* opdCreateDesktop(opd::script::Player* player) {
    if (!hasScreen())
        return nullptr;
    return std::make_unique<OwnDesktop>(player).release();
}

extern "C" void opdDestroyDesktop(opd::ui::Desktop* desktop) {
    const std::unique_ptr<opd::ui::Desktop> owned(desktop);
}
