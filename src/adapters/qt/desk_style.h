#pragma once

#include <QProxyStyle>

namespace opd::qt {

/// Draws what a style sheet cannot without losing the rest of a control: the frames of lists and pickers, the marks of
/// check boxes and option buttons, and the frame of the one that has the focus, whichever way it came there.
class DeskStyle final : public QProxyStyle {
    Q_OBJECT

  public:
    DeskStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace opd::qt
