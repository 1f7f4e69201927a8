#pragma once

#include <QRect>
#include <QSize>

class QStyleOptionGroupBox;
class QStyleOptionHeader;
class QWidget;

/// What the desk's style measures, in pixels that do not depend on the screen's scale.
namespace opd::qt::sizes {

/// A field around its contents.
QSize field(const QSize& contents, const QWidget* widget);

/// The room for the text within a field of one or more lines, the same in each of its states.
QRect insideField(const QRect& field, const QWidget* widget);

/// The room for the rows within a table.
QRect insideTable(const QRect& table);

/// What there is at least in a list of choices, and in a picker, for the toolkit's own style to draw a frame around.
QSize list(const QSize& contents);
QSize picker(const QSize& contents);

/// A button around its text.
QSize button(const QSize& contents, const QWidget* widget);

/// A title of a table's column around its text.
QSize columnTitle(const QStyleOptionHeader& title);

/// The room for the text within such a title.
QRect insideColumnTitle(const QRect& title);

/// A group around its contents, wide enough for its title; where its title and its frame are, and the room within it.
QSize group(const QSize& contents, const QStyleOptionGroupBox& group);
QRect titleOfGroup(const QStyleOptionGroupBox& group);
QRect frameOfGroup(const QStyleOptionGroupBox& group);
QRect insideGroup(const QStyleOptionGroupBox& group);

} // namespace opd::qt::sizes
