#include "adapters/qt/look/sizes.h"

#include "adapters/qt/look/marks.h"
#include "adapters/qt/look/writing.h"

#include <QDialogButtonBox>
#include <QStyleOption>

namespace opd::qt::sizes {

namespace {

constexpr int leastLine = 19; ///< the height of a line in a field
constexpr int leastLineOfList = 18;
constexpr int leastLineOfPicker = 22;
constexpr int leastLineOnButton = 20;
constexpr int leastInDialog = 72; ///< the width of the text of a button that answers a question
constexpr int titleFromLeft = 13;
constexpr int besideTitle = 4;
constexpr int leastAboveGroup = 8; ///< half a line, so that the frame runs through the middle of the title
constexpr int besideColumnTitle = 3;
constexpr QSize aroundColumnTitle{11, 13};

/// What is left free on either side, the frame included.
struct Free {
    int beside, above;
};

Free aroundText(const QWidget* widget) {
    return liesOnCell(widget) ? Free{3, 1} : Free{5, 2};
}

QSize wrapped(const QSize& contents, const Free& free) {
    return contents + QSize(2 * free.beside, 2 * free.above);
}

int aboveGroup(const QFontMetrics& letters) {
    return std::max(leastAboveGroup, (letters.height() + 1) / 2);
}

} // namespace

QSize field(const QSize& contents, const QWidget* widget) {
    return wrapped(liesOnCell(widget) ? contents : contents.expandedTo({0, leastLine}), aroundText(widget));
}

QRect insideField(const QRect& field, const QWidget* widget) {
    const Free free = aroundText(widget);
    return field.adjusted(free.beside, free.above, -free.beside, -free.above);
}

QRect insideTable(const QRect& table) {
    return table.adjusted(2, 2, -2, -2);
}

QSize list(const QSize& contents) {
    return contents.expandedTo({0, leastLineOfList});
}

QSize picker(const QSize& contents) {
    return contents.expandedTo({0, leastLineOfPicker});
}

QSize button(const QSize& contents, const QWidget* widget) {
    if (isMarked(widget, "lookup"))
        return wrapped(contents.expandedTo({18, 18}), {5, 1});
    if (isMarked(widget, "small"))
        return wrapped(contents.expandedTo({0, leastLineOnButton}), {9, 4});
    const bool answers = widget != nullptr && qobject_cast<const QDialogButtonBox*>(widget->parentWidget()) != nullptr;
    return wrapped(contents.expandedTo({answers ? leastInDialog : 0, leastLineOnButton}), {15, 4});
}

QSize columnTitle(const QStyleOptionHeader& title) {
    return title.fontMetrics.size(0, title.text) + aroundColumnTitle;
}

QRect insideColumnTitle(const QRect& title) {
    return title.adjusted(besideColumnTitle, 0, -besideColumnTitle - 1, -1);
}

QSize group(const QSize& contents, const QStyleOptionGroupBox& group) {
    return contents.expandedTo({titleOfGroup(group).right() + titleFromLeft, 0});
}

QRect titleOfGroup(const QStyleOptionGroupBox& group) {
    if (group.text.isEmpty())
        return {};
    const QFontMetrics letters(writing::fontOfTitle(group));
    return {titleFromLeft, 0, letters.size(Qt::TextShowMnemonic, group.text).width() + 2 * besideTitle,
            letters.height()};
}

QRect frameOfGroup(const QStyleOptionGroupBox& group) {
    return group.rect.adjusted(0, aboveGroup(group.fontMetrics), 0, 0);
}

QRect insideGroup(const QStyleOptionGroupBox& group) {
    return frameOfGroup(group).adjusted(1, 5, -1, -1);
}

} // namespace opd::qt::sizes
