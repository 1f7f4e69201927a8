#pragma once

#include "adapters/qt/views/control_view.h"
#include "ui/report_pane.h"

#include <memory>

class QListWidget;
class QScrollBar;

namespace opd::qt {

class PagedDocument;
class PagePreview;

/// Shows the pages of a document as they will be printed. Whatever has the focus in the window, the arrow keys and the
/// page keys move in the pages.
class ReportPaneView final : public ControlView {
  public:
    ReportPaneView(ui::ReportPane& pane, QWidget* widget);
    ~ReportPaneView() override;

    void show(ui::Aspect aspect) override;
    QString shownText() const override;

  private:
    void showDocument();
    void showZoom();
    void bindKeys();
    void scroll(int amount);
    void scrollViews(int direction);
    QScrollBar* scrollBar() const;

    ui::ReportPane& m_pane;
    std::shared_ptr<const PagedDocument> m_pages;
    QListWidget* m_groups;
    std::unique_ptr<PagePreview> m_preview;
};

} // namespace opd::qt
