#pragma once

#include <QStyle>
#include <QWidget>

namespace opd::qt {

/// Has a widget look as the style sheet wants it by its properties of now: it looks at them only then.
inline void restyle(QWidget& widget) {
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

} // namespace opd::qt
