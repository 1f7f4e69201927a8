#include "adapters/qt/look/shapes.h"

#include "adapters/qt/look/colours.h"
#include "adapters/qt/look/marks.h"

#include <QImage>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <cmath>
#include <vector>

namespace opd::qt::shapes {

namespace {

constexpr double rounding = 3; ///< of the corners of fields and buttons
constexpr double roundingOfGroup = 4;
const QColor noGround;
constexpr int neededEdge = 4; ///< the width of the mark of a field that is needed still

bool has(const QStyleOption& option, QStyle::StateFlag state) {
    return option.state.testFlag(state);
}

struct Edge {
    QColor colour;
    int width;
};

/// How the corners of a rectangle are drawn, which is most of what a rounded one costs.
struct Corners {
    Edge edge;
    QColor ground; ///< invalid where none is to be filled
    double radius;
    double scale; ///< of the screen

    /// How far they reach into the rectangle.
    int reach() const { return std::max(edge.width, static_cast<int>(std::ceil(radius))) + 1; }

    bool operator==(const Corners& other) const {
        return edge.colour == other.edge.colour && edge.width == other.edge.width && ground == other.ground &&
               radius == other.radius && scale == other.scale;
    }
};

void drawWhole(QPainter& painter, const QRectF& rect, const Corners& corners) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(corners.edge.colour, corners.edge.width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(corners.ground.isValid() ? QBrush(corners.ground) : QBrush(Qt::NoBrush));
    const double half = corners.edge.width / 2.0;
    const double inner = std::max(0.0, corners.radius - half);
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), inner, inner);
}

/// The four corners, and nothing between them.
QImage drawn(const Corners& corners) {
    const int side = 2 * corners.reach();
    QImage image(QSize(side, side) * corners.scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(corners.scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawWhole(painter, QRectF(0, 0, side, side), corners);
    return image;
}

/// Kept: there are a few dozen of them, and each window draws hundreds.
const QImage& imageOf(const Corners& corners) {
    static std::vector<std::pair<Corners, QImage>> kept;
    const auto found =
        std::find_if(kept.begin(), kept.end(), [&](const auto& known) { return known.first == corners; });
    return found != kept.end() ? found->second : kept.emplace_back(corners, drawn(corners)).second;
}

void drawCorners(QPainter& painter, const QRect& rect, const QImage& image, int reach) {
    const double scale = image.devicePixelRatio();
    for (const bool right : {false, true})
        for (const bool low : {false, true}) {
            const QPointF place(right ? rect.right() + 1 - reach : rect.left(),
                                low ? rect.bottom() + 1 - reach : rect.top());
            const QPointF part(right ? reach : 0, low ? reach : 0);
            painter.drawImage(QRectF(place, QSizeF(reach, reach)), image,
                              QRectF(part * scale, QSizeF(reach, reach) * scale));
        }
}

void drawEdges(QPainter& painter, const QRect& rect, const Corners& corners) {
    const auto& [colour, width] = corners.edge;
    const int reach = corners.reach();
    const int across = rect.width() - 2 * reach, down = rect.height() - 2 * reach;
    painter.fillRect(rect.left() + reach, rect.top(), across, width, colour);
    painter.fillRect(rect.left() + reach, rect.bottom() + 1 - width, across, width, colour);
    painter.fillRect(rect.left(), rect.top() + reach, width, down, colour);
    painter.fillRect(rect.right() + 1 - width, rect.top() + reach, width, down, colour);
}

void drawGround(QPainter& painter, const QRect& rect, const Corners& corners) {
    const int width = corners.edge.width, reach = corners.reach();
    const QRect middle = rect.adjusted(reach, width, -reach, -width);
    painter.fillRect(middle, corners.ground);
    for (const int left : {rect.left() + width, rect.right() + 1 - reach})
        painter.fillRect(left, rect.top() + reach, reach - width, rect.height() - 2 * reach, corners.ground);
}

/// A rounded rectangle with its edge wholly inside. On a screen of a broken scale nothing falls on whole pixels.
void draw(QPainter& painter, const QRect& rect, const Edge& edge, const QColor& ground, double radius) {
    const Corners corners{edge, ground, radius, painter.device()->devicePixelRatioF()};
    const int least = 2 * corners.reach();
    if (corners.scale != std::floor(corners.scale) || rect.width() < least || rect.height() < least) {
        painter.save();
        drawWhole(painter, rect, corners);
        painter.restore();
        return;
    }
    if (ground.isValid())
        drawGround(painter, rect, corners);
    drawEdges(painter, rect, corners);
    drawCorners(painter, rect, imageOf(corners), corners.reach());
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
    painter.setClipRect(QRect(rect.left(), rect.top(), neededEdge, rect.height()), Qt::IntersectClip);
    draw(painter, rect, {colours::needed, 1}, colours::needed, rounding);
    painter.restore();
}

/// The edge and the filling of a check box or an option button. Of one that is needed still its text shows the focus.
void prepareIndicator(QPainter& painter, const QStyleOption& option, const QWidget* widget = nullptr) {
    const bool usable = has(option, QStyle::State_Enabled);
    const bool focused = has(option, QStyle::State_HasFocus);
    const bool filled = has(option, QStyle::State_On) || has(option, QStyle::State_NoChange);
    const bool needed = isMarked(widget, "needed");
    const QColor edge = needed ? colours::needed : focused || (filled && usable) ? colours::accent : colours::quietText;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, focused || needed ? 2 : 1));
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
    draw(painter, option.rect, edgeOf(option, widget), noGround, rounding);
}

void field(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    draw(painter, option.rect, edgeOf(option, widget), paperOf(option, widget), liesOnCell(widget) ? 0 : rounding);
    if (isMarked(widget, "needed")) // with the focus, too, which has the other three sides
        markNeeded(painter, option.rect);
}

void frameOfTable(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    Edge edge = edgeOf(option, widget);
    edge.width = std::min(edge.width, has(option, QStyle::State_HasFocus) ? 2 : 1);
    draw(painter, option.rect, edge, colours::paper, 0);
}

void focusFrame(QPainter& painter, const QStyleOption& option) {
    draw(painter, option.rect, {colours::accent, 2}, noGround, rounding);
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

void optionButton(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    painter.save();
    prepareIndicator(painter, option, widget);
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
    draw(painter, option.rect, {edge, focused ? 2 : 1}, groundOf(look, option), rounding);
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
    draw(painter, option.rect, {colours::border, 1}, colours::paper, 0);
}

void frameOfGroup(QPainter& painter, const QRect& frame, const QRect& title) {
    painter.save();
    if (!title.isEmpty())
        painter.setClipRegion(QRegion(frame).subtracted(title), Qt::IntersectClip);
    draw(painter, frame, {colours::line, 1}, noGround, roundingOfGroup);
    painter.restore();
}

} // namespace opd::qt::shapes
