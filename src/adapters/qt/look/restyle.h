#pragma once

#include "adapters/qt/look/writing.h"

#include <QWidget>

namespace opd::qt {

/// Has a widget look as its marks and its state of now want it: what of that is no painting is looked at only then.
inline void restyle(QWidget& widget) {
    writing::renew(widget);
    widget.update();
}

} // namespace opd::qt
