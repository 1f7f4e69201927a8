#include "adapters/qt/basics/wrapped_label.h"

#include <QEvent>

namespace opd::qt {

int WrappedLabel::heightForWidth(int width) const {
    if (m_measured != text()) {
        m_measured = text();
        m_heights.clear();
    }
    const auto known = m_heights.constFind(width);
    return known != m_heights.constEnd() ? *known : *m_heights.insert(width, QLabel::heightForWidth(width));
}

bool WrappedLabel::event(QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::ContentsRectChange)
        m_heights.clear();
    return QLabel::event(event);
}

} // namespace opd::qt
