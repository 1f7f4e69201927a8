#include "adapters/qt/report/paged_document.h"

#include "adapters/qt/basics/qt_image.h"
#include "adapters/qt/basics/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>

#include <stdexcept>

namespace opd::qt {

namespace {

constexpr int resolution = 1200; // dots per inch
constexpr double millimetre = resolution / 25.4;
constexpr int dotsPerMetre = 47244;
constexpr double smallestScale = 0.55; // what is smaller can hardly be read, and its bars hardly be scanned
constexpr double scaleStep = 0.05;
constexpr double gap = 2 * millimetre; // between head, body and foot
constexpr int groupLevel = 4;

void draw(QPainter& painter, const QTextDocument& document, const QRectF& clip) {
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = clip;
    context.palette.setColor(QPalette::Text, Qt::black);
    document.documentLayout()->draw(&painter, context);
}

} // namespace

PagedDocument::PagedDocument(const report::Document& document)
    : m_head(toQt(document.head)), m_foot(toQt(document.foot)), m_style(toQt(document.style)),
      m_metrics(1, 1, QImage::Format_RGB32), m_paper(document.paper), m_margins(document.margins) {
    for (const auto& [name, image] : document.images)
        m_images.insert(toQt(name), toQt(*image));
    m_metrics.setDotsPerMeterX(dotsPerMetre);
    m_metrics.setDotsPerMeterY(dotsPerMetre);
    fill(m_body, toQt(document.body));
    layOut(1);
    for (qreal scale = 1; document.shrinksToFit && !fits() && scale > smallestScale;)
        layOut(scale -= scaleStep);
    if (document.shrinksToFit && !fits())
        layOut(1); // nothing is left out: it goes on upon another page
}

/// The pages are laid out as much larger as they are then painted smaller.
void PagedDocument::layOut(qreal scale) {
    m_scale = scale;
    const double dots = millimetre / scale;
    m_content =
        QRectF(0, 0, m_paper.width * dots, m_paper.height * dots)
            .adjusted(m_margins.left * dots, m_margins.top * dots, -m_margins.right * dots, -m_margins.bottom * dots);
    m_headHeight = m_head.isEmpty() ? 0 : strip(m_head, 2)->size().height() + gap;
    const qreal footHeight = m_foot.isEmpty() ? 0 : strip(m_foot, 1)->size().height() + gap;
    m_bodyHeight = m_content.height() - m_headHeight - footHeight;
    m_body.setPageSize(QSizeF(m_content.width(), m_bodyHeight));
}

bool PagedDocument::fits() const {
    return pageCount() == 1 && m_body.documentLayout()->documentSize().width() <= m_content.width() + 1;
}

void PagedDocument::fill(QTextDocument& part, const QString& markup) const {
    part.setDocumentMargin(0);
    part.setUndoRedoEnabled(false);
    part.setUseDesignMetrics(true);
    part.documentLayout()->setPaintDevice(const_cast<QImage*>(&m_metrics));
    for (auto image = m_images.begin(); image != m_images.end(); ++image)
        part.addResource(QTextDocument::ImageResource, QUrl(image.key()), image.value());
    part.setDefaultStyleSheet(m_style);
    part.setHtml(QStringLiteral("<html><body>") + markup + QStringLiteral("</body></html>"));
}

/// The head or the foot of a page.
std::unique_ptr<QTextDocument> PagedDocument::strip(QString markup, int page) const {
    markup.replace(QStringLiteral("{page}"), QString::number(page));
    markup.replace(QStringLiteral("{pages}"), QString::number(pageCount()));
    auto part = std::make_unique<QTextDocument>();
    fill(*part, markup);
    part->setTextWidth(m_content.width());
    return part;
}

int PagedDocument::pageOfGroup(int group) const {
    for (QTextBlock block = m_body.begin(); block.isValid(); block = block.next())
        if (block.blockFormat().headingLevel() == groupLevel && group-- == 0)
            return 1 + static_cast<int>(m_body.documentLayout()->blockBoundingRect(block).top() / m_bodyHeight);
    return 1;
}

void PagedDocument::prepare(QPagedPaintDevice& device) const {
    device.setPageSize(QPageSize(QSizeF(m_paper.width, m_paper.height), QPageSize::Millimeter));
    device.setPageOrientation(QPageLayout::Portrait);
    device.setPageMargins(QMarginsF());
}

void PagedDocument::paintPage(QPainter& painter, int page) const {
    painter.save();
    painter.scale(m_scale * painter.device()->logicalDpiX() / double{resolution},
                  m_scale * painter.device()->logicalDpiY() / double{resolution});
    painter.translate(m_content.topLeft());
    const std::unique_ptr<QTextDocument> foot = strip(m_foot, page);
    painter.save();
    painter.translate(0, m_content.height() - foot->size().height());
    draw(painter, *foot, {});
    painter.restore();
    const QRectF part(0, (page - 1) * m_bodyHeight, m_content.width(), m_bodyHeight);
    if (page > 1) {
        draw(painter, *strip(m_head, page), {});
        painter.translate(0, m_headHeight);
    }
    painter.translate(0, -part.top());
    painter.setClipRect(part);
    draw(painter, m_body, part.adjusted(0, 1, 0, -1)); // a line that only touches the page is not on it
    painter.restore();
}

void PagedDocument::paint(QPagedPaintDevice& device, int firstPage, int lastPage) const {
    QPainter painter;
    if (!painter.begin(&device))
        throw std::runtime_error("The pages cannot be printed.");
    for (int page = firstPage; page <= lastPage; ++page) {
        if (page > firstPage && !device.newPage())
            throw std::runtime_error("Page " + std::to_string(page) + " cannot be printed.");
        paintPage(painter, page);
    }
    if (!painter.end())
        throw std::runtime_error("The pages cannot be printed.");
}

} // namespace opd::qt
