#pragma once

#include <QColor>

class QPainter;
class QRect;
class QStyleOption;
class QWidget;

/// What the desk's style paints, a shape each.
namespace opd::qt::shapes {

/// The frame of a list of choices or a picker, over what was drawn of it.
void frameOfChoice(QPainter& painter, const QStyleOption& option, const QWidget* widget);

/// The paper and the frame of a field of one or more lines.
void field(QPainter& painter, const QStyleOption& option, const QWidget* widget);

/// The frame of a table.
void frameOfTable(QPainter& painter, const QStyleOption& option, const QWidget* widget);

/// What says that a part has the focus which has no look of its own for it.
void focusFrame(QPainter& painter, const QStyleOption& option);

/// The indicator of a check box or an option button, by its state.
void checkBox(QPainter& painter, const QStyleOption& option);
void optionButton(QPainter& painter, const QStyleOption& option, const QWidget* widget);

/// A button without what is written on it.
void button(QPainter& painter, const QStyleOption& option, const QWidget* widget);

/// The colour of what is written on a button.
QColor textOfButton(const QStyleOption& option, const QWidget* widget);

/// The ground of a title of a table's column.
void columnTitle(QPainter& painter, const QStyleOption& option);

/// The ground of a window's heading.
void heading(QPainter& painter, const QStyleOption& option);

/// A hint that appears under the mouse.
void tip(QPainter& painter, const QStyleOption& option);

/// The frame around a group, open where its title stands.
void frameOfGroup(QPainter& painter, const QRect& frame, const QRect& title);

} // namespace opd::qt::shapes
