#include "adapters/qt/activation.h"

#include "adapters/qt/window_shell.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

namespace opd::qt {

bool isOwnWindow(const QWidget& widget) {
    return widget.isWindow() && (qobject_cast<const WindowShell*>(&widget) != nullptr ||
                                 qobject_cast<const QMessageBox*>(&widget) != nullptr);
}

QWidget* topWindow() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    QWidget* top = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (isOwnWindow(*widget) && widget->isVisible())
            top = widget;
    return top;
}

namespace {

void activateTop() {
    if (QWidget* top = topWindow())
        top->activateWindow();
}

} // namespace

bool Activation::eventFilter(QObject* object, QEvent* event) {
    if ((event->type() == QEvent::Show || event->type() == QEvent::Hide) && object->isWidgetType() &&
        isOwnWindow(static_cast<QWidget&>(*object)))
        QTimer::singleShot(0, this, [] { activateTop(); });
    return false;
}

} // namespace opd::qt
