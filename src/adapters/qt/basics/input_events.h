#pragma once

#include <QEvent>

namespace opd::qt {

/// True for what a key of the keyboard sends.
inline bool isOfKey(QEvent::Type type) {
    return type == QEvent::KeyPress || type == QEvent::KeyRelease;
}

/// True for what a button of the mouse sends.
inline bool isOfMouseButton(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

} // namespace opd::qt
