#include "adapters/qt/look/shapes.h"

#include "adapters/qt/look/colours.h"
#include "adapters/qt/look/marks.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace opd::qt::shapes {

namespace {

constexpr double rounding = 3; ///< of the corners of fields and buttons
constexpr double roundingOfGroup = 4;
constexpr int neededEdge = 4; ///< the width of the mark of a field that is needed still

bool has(const QStyleOption& option, QStyle::StateFlag state) {
    return option.state.testFlag(state);
}

struct Edge {
    QColor colour;
    int width;
};

/// A rectangle with its edge wholly inside and whatever brush the painter has.
void drawInside(QPainter& painter, const QRect& rect, const Edge& edge, double radius) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge.colour, edge.width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const double half = edge.width / 2.0;
    const double inner = std::max(0.0, radius - half);
    painter.drawRoundedRect(QRectF(rect).adjusted(half, half, -half, -half), inner, inner);
}

void stroke(QPainter& painter, const QRect& rect, const Edge& edge, double radius) {
    painter.save();
    painter.setBrush(Qt::NoBrush);
    drawInside(painter, rect, edge, radius);
    painter.restore();
}

void fill(QPainter& painter, const QRect& rect, const Edge& edge, const QColor& ground, double radius) {
    painter.save();
    painter.setBrush(ground);
    drawInside(painter, rect, edge, radius);
    painter.restore();
}

/// A refusal counts more than the focus.
Edge edgeOf(const QStyleOption& option, const QWidget* widget) {
    const bool focused = has(option, QStyle::State_HasFocus);
    if (isMarked(widget, "refused"))
        return {colours::alert, focused ? 3 : 2};
    return focused ? Edge{colours::accent, 2} : Edge{colours::border, 1};
}

const QColor& paperOf(const QStyleOption& option, const QWidget* widget) {
    if (isMarked(widget, "refused"))
        return colours::paperRefused;
    if (has(option, QStyle::State_ReadOnly) || !has(option, QStyle::State_Enabled) || isMarked(widget, "lookupName"))
        return colours::paperShowing;
    return has(option, QStyle::State_HasFocus) ? colours::paperInUse : colours::paper;
}

void markNeeded(QPainter& painter, const QRect& rect) {
    painter.save();
    painter.setClipRect(QRect(rect.left(), rect.top(), neededEdge, rect.height()));
    painter.setBrush(colours::needed);
    drawInside(painter, rect, {colours::needed, 1}, rounding);
    painter.restore();
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

/// How a kind of button looks by its state.
struct ButtonLook {
    const QColor &ground, &underMouse, &pressed, &unusable;
    const QColor &edge, &inUse;
    const QColor &text, &unusableText;
};

const ButtonLook usualLook{colours::button, colours::buttonUnderMouse, colours::buttonPressed, colours::buttonUnusable,
                           colours::border, colours::accent,           colours::text,          colours::unusableText};
const ButtonLook primaryLook{colours::primary, colours::primaryUnderMouse, colours::primaryEdge,
                             colours::heading, colours::primaryEdge,       colours::primaryInUse,
                             colours::paper,   colours::quietText};
const ButtonLook hospitalPrintLook{colours::hospitalPrint,
                                   colours::hospitalPrintUnderMouse,
                                   colours::hospitalPrintUnderMouse,
                                   colours::buttonUnusable,
                                   colours::primaryEdge,
                                   colours::hospitalPrintInUse,
                                   colours::text,
                                   colours::unusableText};

const ButtonLook& lookOf(const QWidget* widget) {
    if (isMarked(widget, "primary"))
        return primaryLook;
    return isMarked(widget, "hospitalPrint") ? hospitalPrintLook : usualLook;
}

const QColor& groundOf(const ButtonLook& look, const QStyleOption& option) {
    if (!has(option, QStyle::State_Enabled))
        return look.unusable;
    if (has(option, QStyle::State_Sunken))
        return look.pressed;
    return has(option, QStyle::State_MouseOver) ? look.underMouse : look.ground;
}

} // namespace

void frameOfChoice(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    stroke(painter, option.rect, edgeOf(option, widget), rounding);
}

void field(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    const Edge edge = edgeOf(option, widget);
    fill(painter, option.rect, edge, paperOf(option, widget), liesOnCell(widget) ? 0 : rounding);
    if (edge.width == 1 && isMarked(widget, "needed"))
        markNeeded(painter, option.rect);
}

void frameOfTable(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    Edge edge = edgeOf(option, widget);
    edge.width = std::min(edge.width, has(option, QStyle::State_HasFocus) ? 2 : 1);
    fill(painter, option.rect, edge, colours::paper, 0);
}

void focusFrame(QPainter& painter, const QStyleOption& option) {
    stroke(painter, option.rect, {colours::accent, 2}, rounding);
}

void checkBox(QPainter& painter, const QStyleOption& option) {
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

void optionButton(QPainter& painter, const QStyleOption& option) {
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

void button(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    const ButtonLook& look = lookOf(widget);
    const bool focused = has(option, QStyle::State_HasFocus);
    const QColor& edge = focused ? look.inUse : has(option, QStyle::State_Enabled) ? look.edge : colours::border;
    fill(painter, option.rect, {edge, focused ? 2 : 1}, groundOf(look, option), rounding);
}

QColor textOfButton(const QStyleOption& option, const QWidget* widget) {
    const ButtonLook& look = lookOf(widget);
    return has(option, QStyle::State_Enabled) ? look.text : look.unusableText;
}

void columnTitle(QPainter& painter, const QStyleOption& option) {
    const QRect& place = option.rect;
    painter.fillRect(place, colours::heading);
    painter.fillRect(place.right(), place.top(), 1, place.height(), colours::line);
    painter.fillRect(place.left(), place.bottom(), place.width(), 1, colours::line);
}

void heading(QPainter& painter, const QStyleOption& option) {
    const QRect& place = option.rect;
    painter.fillRect(place, colours::heading);
    painter.fillRect(place.left(), place.bottom(), place.width(), 1, colours::line);
}

void tip(QPainter& painter, const QStyleOption& option) {
    fill(painter, option.rect, {colours::border, 1}, colours::paper, 0);
}

void frameOfGroup(QPainter& painter, const QRect& frame, const QRect& title) {
    painter.save();
    if (!title.isEmpty())
        painter.setClipRegion(QRegion(frame).subtracted(title));
    stroke(painter, frame, {colours::line, 1}, roundingOfGroup);
    painter.restore();
}

} // namespace opd::qt::shapes
