#pragma once

#include <QObject>

namespace opd::qt {

/// Lets windows draw themselves while a statement waits: the busy pointer shows, nothing that was typed or clicked is
/// taken, no timer of a window fires and no window is closed meanwhile. What was typed is taken afterwards.
class Waiting final : public QObject {
  public:
    Waiting();

    /// A statement waits; called over and over. Does nothing outside the thread of the windows.
    void draw();

    /// It is done.
    void over();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    bool m_pointerShows = false;
    bool m_drawing = false;
};

} // namespace opd::qt
