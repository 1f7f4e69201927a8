#include "ui/report_pane.h"

#include <algorithm>
#include <utility>

namespace opd::ui {

void ReportPane::show(report::Document document) {
    m_document = std::make_unique<const report::Document>(std::move(document));
    m_page = 1;
    m_pageCount = 1;
    tellView(Aspect::Document);
}

void ReportPane::turnTo(int page) {
    const int wanted = std::clamp(page, 1, m_pageCount);
    if (wanted == m_page)
        return;
    m_page = wanted;
    tellView(Aspect::ReportPage);
    onPage();
}

void ReportPane::setFit(Fit fit) {
    m_fit = fit;
    m_zoomSteps = 0;
    tellView(Aspect::Zoom);
}

void ReportPane::zoom(int steps) {
    constexpr int furthest = 10;
    m_zoomSteps = std::clamp(m_zoomSteps + steps, -furthest, furthest);
    tellView(Aspect::Zoom);
}

void ReportPane::laidOut(int pageCount) {
    m_pageCount = std::max(pageCount, 1);
    m_page = std::clamp(m_page, 1, m_pageCount);
    onPage();
}

std::string ReportPane::shownText() const {
    return m_document ? m_document->text : std::string{};
}

} // namespace opd::ui
