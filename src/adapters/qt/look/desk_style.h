#pragma once

#include <QProxyStyle>

namespace opd::qt {

/// The look of the desk: what it does not say itself is that of the toolkit's own style. A form or a view says by a
/// mark (look/marks.h) what is special about a widget; the marks are looked at when the widget is painted, measured or
/// polished.
class DeskStyle final : public QProxyStyle {
    Q_OBJECT

  public:
    DeskStyle();

    using QProxyStyle::polish;

    /// Gives a widget what is no painting: the colour of its text and its font (see restyle for when they change).
    void polish(QWidget* widget) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
};

} // namespace opd::qt
