#pragma once

#include "ports/report/document.h"

#include <QImage>
#include <QMap>
#include <QRectF>
#include <QTextDocument>

#include <memory>

class QPagedPaintDevice;
class QPainter;

namespace opd::qt {

/// A report laid out on pages of its paper. The layout is made once, finer than any printer, and is the same on the
/// screen, on paper and in a file.
class PagedDocument {
  public:
    explicit PagedDocument(const report::Document& document);

    int pageCount() const { return m_body.pageCount(); }

    /// The page, counted from 1, on which a group of the document begins.
    int pageOfGroup(int group) const;

    /// Makes a device take pages of this paper from edge to edge.
    void prepare(QPagedPaintDevice& device) const;

    /// Paints a page, counted from 1, on a device that was prepared.
    void paintPage(QPainter& painter, int page) const;

    /// Paints some pages, each on a new one of the device. Throws std::runtime_error when it cannot be painted on.
    void paint(QPagedPaintDevice& device, int firstPage, int lastPage) const;

  private:
    void layOut(qreal scale);
    bool fits() const;
    void fill(QTextDocument& part, const QString& markup) const;
    std::unique_ptr<QTextDocument> strip(QString markup, int page) const;

    QString m_head;
    QString m_foot;
    QString m_style;
    QMap<QString, QImage> m_images; ///< made once, shared by all parts
    QImage m_metrics;               ///< the device that the layout is made for
    report::Paper m_paper;
    report::Margins m_margins;
    qreal m_scale = 1; ///< below 1 where the report was made smaller, so that one page is enough
    QRectF m_content;  ///< where head, body and foot stand on a page, in dots of the layout
    qreal m_headHeight = 0;
    qreal m_bodyHeight = 0;
    QTextDocument m_body;
};

} // namespace opd::qt
