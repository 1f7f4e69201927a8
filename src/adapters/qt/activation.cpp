#include "adapters/qt/activation.h"

#include "adapters/qt/window_shell.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

namespace opd::qt {

namespace {

bool isOurs(const QWidget& widget) {
    return widget.isWindow() && (qobject_cast<const WindowShell*>(&widget) != nullptr ||
                                 qobject_cast<const QMessageBox*>(&widget) != nullptr);
}

void activateTop() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        modal->activateWindow();
        return;
    }
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (isOurs(*widget) && widget->isVisible())
            widget->activateWindow();
}

} // namespace

bool Activation::eventFilter(QObject* object, QEvent* event) {
    if ((event->type() == QEvent::Show || event->type() == QEvent::Hide) && object->isWidgetType() &&
        isOurs(static_cast<QWidget&>(*object)))
        QTimer::singleShot(0, this, [] { activateTop(); });
    return false;
}

} // namespace opd::qt
