#include "adapters/qt/look/desk_style.h"

#include "adapters/qt/look/marks.h"
#include "adapters/qt/look/shapes.h"
#include "adapters/qt/look/sizes.h"
#include "adapters/qt/look/writing.h"

#include <QDialogButtonBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QStyleOption>

namespace opd::qt {

namespace {

template <class Option> const Option& as(const QStyleOption* option) {
    return *qstyleoption_cast<const Option*>(option);
}

bool isMemo(const QWidget* widget) {
    return qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
}

bool isTable(const QWidget* widget) {
    return qobject_cast<const QTableView*>(widget) != nullptr;
}

/// The lines of text in pickers and in what edits cells have no frame: what is around them has it.
bool hasFrame(const QStyleOption* option) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    return frame != nullptr && frame->lineWidth > 0;
}

void drawMemo(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    QStyleOption own = option;
    own.state.setFlag(QStyle::State_ReadOnly, static_cast<const QPlainTextEdit*>(widget)->isReadOnly());
    shapes::field(painter, own, widget);
}

} // namespace

DeskStyle::DeskStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void DeskStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    writing::prepare(*widget);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget); area != nullptr && (isMemo(area) || isTable(area))) {
        area->setFrameStyle(area->frameStyle());                // it asked for the width before it was what it is
        area->viewport()->setAutoFillBackground(isTable(area)); // the paper of a field changes with its state
    }
}

void DeskStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == PE_IndicatorCheckBox)
        shapes::checkBox(*painter, *option);
    else if (element == PE_IndicatorRadioButton)
        shapes::optionButton(*painter, *option, widget);
    else if (element == PE_PanelTipLabel)
        shapes::tip(*painter, *option);
    else if (element == PE_PanelLineEdit && hasFrame(option))
        shapes::field(*painter, *option, widget);
    else if (element == PE_Frame && isMemo(widget))
        drawMemo(*painter, *option, widget);
    else if (element == PE_Frame && isTable(widget))
        shapes::frameOfTable(*painter, *option, widget);
    else if (element == PE_FrameFocusRect && !isTable(widget))
        shapes::focusFrame(*painter, *option);
    else if (element != PE_PanelLineEdit && element != PE_FrameFocusRect)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void DeskStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_PushButton) {
        shapes::button(*painter, *option, widget);
        QStyleOptionButton label = as<QStyleOptionButton>(option);
        label.palette.setColor(QPalette::ButtonText, shapes::textOfButton(*option, widget));
        drawControl(CE_PushButtonLabel, &label, painter, widget);
    } else if (element == CE_HeaderSection) {
        shapes::columnTitle(*painter, *option);
    } else if (element == CE_ShapedFrame && isHeading(widget)) {
        shapes::heading(*painter, *option);
    } else {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void DeskStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    if (control == CC_GroupBox) {
        const QRect title = subControlRect(control, option, SC_GroupBoxLabel, widget);
        shapes::frameOfGroup(*painter, subControlRect(control, option, SC_GroupBoxFrame, widget), title);
        writing::titleOfGroup(*painter, as<QStyleOptionGroupBox>(option), title);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox)
        shapes::frameOfChoice(*painter, *option, widget);
}

QSize DeskStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                  const QWidget* widget) const {
    switch (type) {
    case CT_LineEdit:
        return hasFrame(option) ? sizes::field(contents, widget) : contents;
    case CT_PushButton:
        return sizes::button(contents, widget);
    case CT_HeaderSection:
        return sizes::columnTitle(as<QStyleOptionHeader>(option));
    case CT_GroupBox:
        return sizes::group(contents, as<QStyleOptionGroupBox>(option));
    case CT_ComboBox:
        return QProxyStyle::sizeFromContents(type, option, sizes::list(contents), widget);
    case CT_SpinBox:
        return QProxyStyle::sizeFromContents(type, option, sizes::picker(contents), widget);
    default:
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

QRect DeskStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    if (element == SE_LineEditContents)
        return hasFrame(option) ? sizes::insideField(option->rect, widget) : option->rect;
    if (element == SE_ShapedFrameContents && isMemo(widget))
        return sizes::insideField(option->rect, widget);
    if (element == SE_ShapedFrameContents && isTable(widget))
        return sizes::insideTable(option->rect);
    if (element == SE_HeaderLabel)
        return sizes::insideColumnTitle(option->rect);
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect DeskStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
    if (control != CC_GroupBox)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const auto& group = as<QStyleOptionGroupBox>(option);
    if (part == SC_GroupBoxLabel)
        return sizes::titleOfGroup(group);
    return part == SC_GroupBoxContents ? sizes::insideGroup(group) : sizes::frameOfGroup(group);
}

// The same order of buttons on every desktop environment: Yes, No, Cancel and OK, Cancel.
int DeskStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    if (hint == SH_DialogButtonLayout)
        return QDialogButtonBox::WinLayout;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

} // namespace opd::qt
