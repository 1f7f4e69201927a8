#pragma once

#include "ports/report/document.h"
#include "ui/control.h"

#include <memory>

namespace opd::ui {

/// Shows a document page by page, as it will be on paper. How many pages there are is known when a view has laid the
/// document out; until then, and on a desktop that lays nothing out, it is one.
class ReportPane final : public Control {
  public:
    enum class Fit { PageWidth, WholePage };

    ReportPane(Container& container, Name name) : Control(Kind::ReportPane, &container, name, {}) {}

    bool showsGroupTree = false; ///< lists the document's groups beside it; set before a document is shown

    const report::Document* document() const { return m_document.get(); }
    void show(report::Document document);

    int page() const { return m_page; }
    int pageCount() const { return m_pageCount; }

    /// Turns to a page, or to the nearest one that there is.
    void turnTo(int page);

    /// What the page is made to fit, and how many steps it is larger (or, below 0, smaller) than that.
    Fit fit() const { return m_fit; }
    int zoomSteps() const { return m_zoomSteps; }
    void setFit(Fit fit);
    void zoom(int steps);

    /// For views: the document has this many pages.
    void laidOut(int pageCount);

    /// What one reads in the document.
    std::string shownText() const override;

    Event<> onPage; ///< the current page or the number of pages is another one

  private:
    std::unique_ptr<const report::Document> m_document;
    int m_page = 1;
    int m_pageCount = 1;
    Fit m_fit = Fit::PageWidth;
    int m_zoomSteps = 0;
};

} // namespace opd::ui
