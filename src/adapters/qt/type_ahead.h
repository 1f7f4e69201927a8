#pragma once

#include <QObject>
#include <QTimer>
#include <QWindow>

#include <deque>
#include <memory>

class QKeyEvent;
class QWidget;

namespace opd::qt {

/// Keeps what is typed while one window makes way for another, and gives it to the one that comes: between the two a
/// display sends its keys to nobody, and some to the one that has gone. What was typed before a question could be read
/// answers nothing.
class TypeAhead final : public QObject {
    Q_OBJECT

  public:
    TypeAhead();
    ~TypeAhead() override;
    TypeAhead(const TypeAhead&) = delete;
    TypeAhead& operator=(const TypeAhead&) = delete;

    /// A window is about to go.
    void begin();

    /// Takes in what was typed so far: the windows that it was sent to will not be asked for it any more, because
    /// another one is about to open.
    void takeIn();

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    bool keeps(const QObject& object, const QEvent& event) const;
    void end();
    void handOn();

    QWindow m_catcher; ///< on no screen; the keyboard is its own meanwhile
    QTimer m_patience;
    std::deque<std::unique_ptr<QKeyEvent>> m_typed;
    const QEvent* m_handedOn = nullptr;
    bool m_between = false; ///< one window has gone or is about to be covered, the next one is not there yet
    bool m_takesIn = false;
};

} // namespace opd::qt
