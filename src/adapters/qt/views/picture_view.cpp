#include "adapters/qt/views/picture_view.h"

#include "adapters/qt/basics/qt_image.h"
#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/look/colours.h"

#include <QEvent>
#include <QPainter>
#include <QPixmap>

namespace opd::qt {

namespace {

constexpr int glyphSize = 40; // in the pixels of a window, whatever the screen's scale

/// A magnifying glass; every second frame has a gleam in its lens.
QPixmap magnifier(int frame, qreal scale) {
    QPixmap pixmap(QSize(glyphSize, glyphSize) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colours::title, 6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(25.5, 25.5), QPointF(34.5, 34.5));
    const bool gleams = frame % 2 != 0;
    painter.setPen(QPen(colours::title, 3));
    painter.setBrush(gleams ? colours::gleamOfLens : colours::paper);
    painter.drawEllipse(QPointF(16, 16), 11.5, 11.5);
    painter.setPen(QPen(gleams ? colours::primaryInUse : colours::edgeOfLens, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(9, 9, 14, 14), (gleams ? 20 : 110) * 16, 60 * 16);
    return pixmap;
}

} // namespace

PictureView::PictureView(ui::Picture& picture, QWidget* widget)
    : ControlView(picture, widget, nullptr), m_picture(picture) {
    widget->installEventFilter(this);
}

void PictureView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect != ui::Aspect::Image)
        return;
    if (widget()->property("glyph") == QStringLiteral("magnifier"))
        static_cast<QLabel*>(widget())->setPixmap(magnifier(m_picture.frame(), widget()->devicePixelRatioF()));
    else
        showImage();
}

void PictureView::showImage() {
    auto* place = static_cast<QLabel*>(widget());
    if (!m_picture.image()) {
        place->clear();
        return;
    }
    const qreal scale = place->devicePixelRatioF();
    QPixmap pixmap = QPixmap::fromImage(toQt(*m_picture.image()))
                         .scaled(place->contentsRect().size() * scale, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    pixmap.setDevicePixelRatio(scale);
    place->setAlignment(Qt::AlignCenter);
    place->setPixmap(pixmap);
}

QString PictureView::shownText() const {
    return static_cast<QLabel*>(widget())->pixmap().isNull() ? QString() : toQt(m_picture.shownText());
}

bool PictureView::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize && !isReleased() && m_picture.image())
        showImage();
    return false;
}

void PictureView::release() {
    ControlView::release();
    widget()->removeEventFilter(this);
}

} // namespace opd::qt
