#include "adapters/qt/form_stock.h"

#include "adapters/qt/window_shell.h"

namespace opd::qt {

namespace {

/// The form that takes so long to build that a clerk would notice.
const std::string largest = "frmRegistration";

/// How long nothing was opened, in milliseconds, before the time is used: a window is on the screen by then.
constexpr int pause = 150;

} // namespace

FormStock::FormStock() {
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    QObject::connect(&m_pause, &QTimer::timeout, &m_pause, [this] { prepare(); });
}

FormStock::~FormStock() = default;

std::unique_ptr<WindowShell> FormStock::take(const std::string& form) {
    return form == largest && m_ready != nullptr ? std::move(m_ready) : std::make_unique<WindowShell>(form);
}

void FormStock::prepareSoon() {
    m_pause.start();
}

void FormStock::prepare() {
    if (m_ready == nullptr)
        m_ready = std::make_unique<WindowShell>(largest);
}

} // namespace opd::qt
