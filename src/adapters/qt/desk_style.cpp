#include "adapters/qt/desk_style.h"

#include "adapters/qt/basics/colours.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

namespace opd::qt {

namespace {

bool has(const QStyleOption& option, QStyle::StateFlag state) {
    return option.state.testFlag(state);
}

/// Strokes a frame that lies wholly inside a rectangle.
void strokeInside(QPainter& painter, const QRect& rect, const QColor& colour, int width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const double half = width / 2.0;
    painter.drawRoundedRect(QRectF(rect).adjusted(half, half, -half, -half), 2, 2);
    painter.restore();
}

void frameField(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    const bool focused = has(option, QStyle::State_HasFocus);
    if (widget != nullptr && widget->property("refused").toBool())
        strokeInside(painter, option.rect, colours::alert, focused ? 3 : 2);
    else
        strokeInside(painter, option.rect, focused ? colours::accent : colours::border, focused ? 2 : 1);
}

/// The edge and the filling of a check box or an option button.
void prepareIndicator(QPainter& painter, const QStyleOption& option) {
    const bool usable = has(option, QStyle::State_Enabled);
    const bool focused = has(option, QStyle::State_HasFocus);
    const bool filled = has(option, QStyle::State_On) || has(option, QStyle::State_NoChange);
    const QColor edge = focused || (filled && usable) ? colours::accent : colours::quietText;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, focused ? 2 : 1));
    painter.setBrush(filled ? edge : usable ? colours::paper : colours::buttonUnusable);
}

/// The square or circle of an indicator, its edge wholly inside.
QRectF indicatorRect(const QStyleOption& option) {
    const double half = has(option, QStyle::State_HasFocus) ? 1 : 0.5;
    return QRectF(option.rect).adjusted(half, half, -half, -half);
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
    painter.save();
    prepareIndicator(painter, option);
    const QRectF box = indicatorRect(option);
    painter.drawRoundedRect(box, 2, 2);
    painter.setPen(QPen(colours::paper, box.width() / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) { return box.topLeft() + QPointF(box.width() * x, box.height() * y); };
    if (has(option, QStyle::State_On))
        painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.28)});
    else if (has(option, QStyle::State_NoChange))
        painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
    painter.restore();
}

void drawOptionButton(QPainter& painter, const QStyleOption& option) {
    painter.save();
    prepareIndicator(painter, option);
    const QRectF circle = indicatorRect(option);
    painter.drawEllipse(circle);
    if (has(option, QStyle::State_On)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours::paper);
        painter.drawEllipse(circle.center(), circle.width() / 5, circle.height() / 5);
    }
    painter.restore();
}

} // namespace

DeskStyle::DeskStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void DeskStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
    case PE_IndicatorCheckBox:
        drawCheckBox(*painter, *option);
        break;
    case PE_IndicatorRadioButton:
        drawOptionButton(*painter, *option);
        break;
    case PE_FrameFocusRect:
        strokeInside(*painter, option->rect, colours::accent, 2);
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void DeskStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox)
        frameField(*painter, *option, widget);
}

} // namespace opd::qt
