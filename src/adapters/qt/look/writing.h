#pragma once

#include <QFont>

class QPainter;
class QRect;
class QStyleOptionGroupBox;
class QWidget;

/// What the desk's style writes: fonts and the colours of text.
namespace opd::qt::writing {

/// Gives a widget the font and the colour of text that its marks and its state ask for.
void prepare(QWidget& widget);

/// The same for one that may have had others, and is not to keep them.
void renew(QWidget& widget);

/// The font of a group's title; what stands in the group is written as elsewhere.
QFont fontOfTitle(const QStyleOptionGroupBox& group);

/// Writes that title into its place.
void titleOfGroup(QPainter& painter, const QStyleOptionGroupBox& group, const QRect& place);

} // namespace opd::qt::writing
