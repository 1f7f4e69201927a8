#pragma once

#include <QTimer>

#include <memory>
#include <string>

namespace opd::qt {

class WindowShell;

/// Hands out the widgets of forms. Those of the largest one are built and dressed ahead, while nobody waits for
/// anything; they have shown no model before, and are thrown away with their window like all others.
class FormStock {
  public:
    FormStock();
    ~FormStock();

    /// The shell of a form, prepared or made now. Throws std::logic_error when there is no such form.
    std::unique_ptr<WindowShell> take(const std::string& form);

    /// Prepares what is missing as soon as the clerk pauses.
    void prepareSoon();

    /// Prepares it now.
    void prepare();

  private:
    QTimer m_pause;
    std::unique_ptr<WindowShell> m_ready;
};

} // namespace opd::qt
