#pragma once

#include <QTableView>
#include <QVariant>

#include <algorithm>

namespace opd::qt {

/// True where a widget is marked so by its form or its view: "primary", "lookup", "refused" and the like are properties
/// that hold true. Asked whenever something is painted, so those that have no such property, most of them, answer at
/// once.
inline bool isMarked(const QWidget* widget, const char* mark) {
    if (widget == nullptr)
        return false;
    const QList<QByteArray> marks = widget->dynamicPropertyNames();
    return std::find(marks.begin(), marks.end(), mark) != marks.end() && widget->property(mark).toBool();
}

/// True for the ground of a window's heading.
inline bool isHeading(const QWidget* widget) {
    return widget != nullptr && !widget->dynamicPropertyNames().isEmpty() &&
           widget->property("decoration") == QStringLiteral("heading");
}

/// True for what lies over a cell of a table.
inline bool liesOnCell(const QWidget* widget) {
    const QWidget* const viewport = widget == nullptr ? nullptr : widget->parentWidget();
    return viewport != nullptr && qobject_cast<const QTableView*>(viewport->parentWidget()) != nullptr;
}

} // namespace opd::qt
