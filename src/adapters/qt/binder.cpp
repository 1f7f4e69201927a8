#include "adapters/qt/binder.h"

#include "adapters/qt/names.h"

#include <QDebug>
#include <QHash>
#include <QScrollArea>
#include <QSet>

namespace opd::qt {

namespace {

/// True for a widget that shows no control and is not meant to: a heading's background, a status line.
bool isDecoration(const QWidget& widget) {
    return widget.property("decoration").isValid();
}

/// The widgets of a form that have a name, without those that Qt names inside its own and those that only adorn it.
QList<QWidget*> namedWidgets(const QWidget& form) {
    QList<QWidget*> named;
    for (QWidget* child : form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        const QString name = child->objectName();
        if (name.startsWith("qt_tabwidget_stackedwidget"))
            named += namedWidgets(*child);
        if (const auto* scrolled = qobject_cast<const QScrollArea*>(child)) {
            if (scrolled->widget() != nullptr)
                named += namedWidgets(*scrolled->widget()); // it shows nothing itself
            continue;
        }
        if (name.isEmpty() || name.startsWith("qt_"))
            continue;
        if (!isDecoration(*child))
            named += child;
        // Only these hold widgets of the form; whatever stands in another one is that one's own business.
        if (child->inherits("QGroupBox") || child->inherits("QTabWidget") || child->inherits("QFrame") ||
            child->metaObject()->className() == QByteArray("QWidget"))
            named += namedWidgets(*child);
    }
    return named;
}

/// The widgets of a form by their names, looked for once: a form has hundreds.
class Widgets {
  public:
    explicit Widgets(const QWidget& form) {
        for (QWidget* widget : form.findChildren<QWidget*>())
            if (!widget->objectName().isEmpty() && !m_byName.contains(widget->objectName()))
                m_byName.insert(widget->objectName(), widget);
    }

    template <class Widget = QWidget> Widget* find(const QString& name) const {
        return qobject_cast<Widget*>(m_byName.value(name));
    }

  private:
    QHash<QString, QWidget*> m_byName;
};

/// The widget that is to show a control; null, with the reason noted, when there is none that fits.
QWidget* widgetFor(const ui::Control& control, const Widgets& form, QStringList& missing) {
    const QString name = widgetName(control);
    QWidget* const widget = form.find(name);
    if (widget == nullptr)
        missing += QStringLiteral("no widget %1").arg(name);
    else if (!fits(control, *widget))
        missing += QStringLiteral("%1 must not be a %2").arg(name, widget->metaObject()->className());
    else
        return widget;
    return nullptr;
}

QLabel* labelFor(const ui::Control& control, const Widgets& form, QStringList& missing) {
    if (!hasLabel(control))
        return nullptr;
    auto* const label = form.find<QLabel>(labelName(control));
    if (label == nullptr)
        missing += QStringLiteral("no label %1").arg(labelName(control));
    return label;
}

} // namespace

QStringList differences(const ui::Window& window, const QWidget& form) {
    QStringList found;
    const Widgets widgets(form);
    QSet<const QWidget*> expected;
    for (const ui::Control* control : window.everything()) {
        if (control->kind() == ui::Kind::Timer)
            continue;
        expected.insert(widgetFor(*control, widgets, found));
        expected.insert(labelFor(*control, widgets, found));
    }
    for (const QWidget* widget : namedWidgets(form))
        if (!expected.contains(widget))
            found += QStringLiteral("%1 shows no control").arg(widget->objectName());
    return found;
}

std::vector<std::unique_ptr<ControlView>> bind(ui::Window& window, QWidget& form) {
    std::vector<std::unique_ptr<ControlView>> views;
    const Widgets widgets(form);
    QStringList missing;
    for (ui::Control* control : window.everything()) {
        QWidget* widget = control->kind() == ui::Kind::Timer ? nullptr : widgetFor(*control, widgets, missing);
        if (widget != nullptr || control->kind() == ui::Kind::Timer)
            views.push_back(makeView(*control, widget, labelFor(*control, widgets, missing)));
    }
    for (const QString& difference : missing)
        qWarning().noquote() << "window" << window.name().c_str() << "-" << difference;
    return views;
}

} // namespace opd::qt
