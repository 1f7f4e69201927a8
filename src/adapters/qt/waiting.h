#pragma once

#include <QFrame>
#include <QObject>
#include <QPointer>

#include <memory>
#include <utility>
#include <vector>

namespace opd::qt {

/// Lets windows draw themselves while a statement waits: the busy pointer shows, nothing that was typed or clicked is
/// taken, no timer of a window fires and no window is closed meanwhile. What was typed is taken afterwards.
class Waiting final : public QObject {
  public:
    Waiting() = default;
    ~Waiting() override;
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    /// A statement waits; called over and over. `offersStop` shows a box over the window in which the clerk can stop
    /// it; false when that was done. Does nothing outside the thread of the windows.
    bool draw(bool offersStop);

    /// It is done.
    void over();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void showBox();
    bool isForBox(const QObject* window, const QEvent& event) const;
    bool takesInput(QObject* window, QEvent& event);

    bool m_pointerShows = false;
    bool m_drawing = false;
    bool m_stopped = false;
    QPointer<QFrame> m_box;
    std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>> m_typedMeanwhile;
};

} // namespace opd::qt
