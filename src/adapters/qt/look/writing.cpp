#include "adapters/qt/look/writing.h"

#include "adapters/qt/look/colours.h"
#include "adapters/qt/look/marks.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOption>

namespace opd::qt::writing {

namespace {

constexpr double sizeOfTitle = 14; ///< in points
constexpr double sizeOfProminent = 15;

/// Whatever is not said here comes from the window.
struct Writing {
    const QColor* text = nullptr;
    const QColor* unusable = nullptr; ///< the same of what cannot be used
    QPalette::ColorRole role = QPalette::WindowText;
    bool bold = false;
    double size = 0; ///< in points, of what is bold
    QMargins around{};

    bool setsPalette() const { return text != nullptr || unusable != nullptr; }
};

Writing writingOfLabel(const QWidget& label) {
    if (isMarked(&label, "title"))
        return {.text = &colours::title, .bold = true, .size = sizeOfTitle, .around = {0, 0, 1, 1}};
    if (isMarked(&label, "titleShadow"))
        return {.text = &colours::paper, .bold = true, .size = sizeOfTitle, .around = {1, 1, 0, 0}};
    if (isMarked(&label, "alert"))
        return {.text = &colours::alert, .bold = true};
    if (isMarked(&label, "refused"))
        return {.text = &colours::alert};
    if (isMarked(&label, "needed"))
        return {.text = &colours::needed};
    return {.text = isMarked(&label, "hint") ? &colours::quietText : nullptr};
}

Writing writingOfField(const QWidget& field, bool readOnly) {
    const bool prominent = isMarked(&field, "prominent");
    return {.text = readOnly || isMarked(&field, "lookupName") ? &colours::shownText : nullptr,
            .unusable = &colours::shownText, // it goes on showing what it holds
            .role = QPalette::Text,
            .bold = prominent,
            .size = prominent ? sizeOfProminent : 0};
}

Writing writingOf(const QWidget& widget) {
    if (qobject_cast<const QLabel*>(&widget) != nullptr)
        return writingOfLabel(widget);
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return line->hasFrame() ? writingOfField(widget, line->isReadOnly()) : Writing{};
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(&widget))
        return writingOfField(widget, memo->isReadOnly());
    if (qobject_cast<const QPushButton*>(&widget) != nullptr)
        return {.bold = isMarked(&widget, "primary") || isMarked(&widget, "hospitalPrint")};
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr)
        return writingOfLabel(widget);
    if (qobject_cast<const QHeaderView*>(&widget) != nullptr)
        return {.bold = true};
    return qobject_cast<const QTableView*>(&widget) != nullptr
               ? Writing{.unusable = &colours::paper, .role = QPalette::Base}
               // an empty list is no field that only shows
               : Writing{};
}

/// A palette and a font of which only what is set here counts.
QPalette paletteOf(const Writing& writing) {
    QPalette palette;
    if (writing.text != nullptr)
        palette.setColor(writing.role, *writing.text);
    if (writing.unusable != nullptr)
        palette.setColor(QPalette::Disabled, writing.role, *writing.unusable);
    return palette;
}

QFont fontOf(const Writing& writing) {
    QFont font;
    if (writing.bold)
        font.setBold(true);
    if (writing.size > 0)
        font.setPointSizeF(writing.size);
    return font;
}

} // namespace

void prepare(QWidget& widget) {
    const Writing writing = writingOf(widget);
    if (writing.setsPalette())
        widget.setPalette(paletteOf(writing));
    if (writing.bold)
        widget.setFont(fontOf(writing));
    if (!writing.around.isNull())
        widget.setContentsMargins(writing.around);
}

void renew(QWidget& widget) {
    const Writing writing = writingOf(widget);
    if (writing.setsPalette() || widget.testAttribute(Qt::WA_SetPalette))
        widget.setPalette(paletteOf(writing));
    if (writing.bold || widget.testAttribute(Qt::WA_SetFont))
        widget.setFont(fontOf(writing));
}

QFont fontOfTitle(const QStyleOptionGroupBox& group) {
    const auto* const box = qobject_cast<const QWidget*>(group.styleObject);
    const QFont font = box == nullptr ? QApplication::font() : box->font();
    static QFont last, bold; // making one anew for every question is half of what a group costs
    if (last != font || !bold.bold()) {
        last = bold = font;
        bold.setBold(true);
    }
    return bold;
}

void titleOfGroup(QPainter& painter, const QStyleOptionGroupBox& group, const QRect& place) {
    painter.save();
    painter.setFont(fontOfTitle(group));
    painter.setPen(colours::title);
    painter.drawText(place, Qt::AlignCenter | Qt::TextShowMnemonic, group.text);
    painter.restore();
}

} // namespace opd::qt::writing
