#pragma once

#include "adapters/qt/views/control_view.h"

#include <QTimer>

class QTabWidget;

namespace opd::qt {

/// A group box with a title, or a plain area where there is none.
class FrameView final : public ControlView {
  public:
    FrameView(ui::Control& control, QWidget* widget) : ControlView(control, widget, nullptr) {}

    void show(ui::Aspect aspect) override;
    QString shownText() const override;
};

/// One page of tabs; its tab stands for it where it can be seen or used.
class PageView final : public ControlView {
  public:
    PageView(ui::Control& control, QWidget* widget);

    void show(ui::Aspect aspect) override;
    void setSpoken(const QString& name, const QString& tip) override;
    QString shownText() const override;

  private:
    QTabWidget* m_tabs;
};

class TabsView final : public ControlView {
  public:
    TabsView(ui::Tabs& tabs, QWidget* widget);

    void show(ui::Aspect aspect) override;
    void setSpoken(const QString& name, const QString& tip) override;
    QString shownText() const override;

  private:
    void follow(int page);

    ui::Tabs& m_pages;
    QTabWidget* m_tabs;
};

/// A timer shows nothing.
class TimerView final : public ControlView {
  public:
    explicit TimerView(ui::Timer& timer);

    void show(ui::Aspect aspect) override;
    void release() override;

  private:
    ui::Timer& m_timer;
    QTimer m_clock;
};

} // namespace opd::qt
