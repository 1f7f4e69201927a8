#include "adapters/qt/spoken_roles.h"

#include "adapters/qt/window_shell.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFrame>
#include <QLabel>
#include <QRadioButton>

namespace opd::qt {

namespace {

class SpokenWindow final : public QAccessibleWidget {
  public:
    explicit SpokenWindow(QWidget* window) : QAccessibleWidget(window) {}

    QAccessible::Role role() const override {
        return (widget()->windowFlags() & Qt::Dialog) == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = widget()->isModal();
        return state;
    }
};

/// The toolkit takes a button for one of a group when it looks after the group itself, which the model does here.
class SpokenOption final : public QAccessibleWidget {
  public:
    explicit SpokenOption(QWidget* button) : QAccessibleWidget(button, QAccessible::RadioButton) {}

    QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && text.isEmpty() ? button().text().remove(QLatin1Char('&')) : text;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button().isChecked();
        return state;
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (button().isEnabled())
            names.prepend(toggleAction());
        return names;
    }

    void doAction(const QString& name) override {
        if (name == toggleAction())
            button().click();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    QAbstractButton& button() const { return *static_cast<QAbstractButton*>(widget()); }
};

class SpokenStatus final : public QAccessibleWidget {
  public:
    explicit SpokenStatus(QWidget* label) : QAccessibleWidget(label, QAccessible::StatusBar) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? static_cast<QLabel*>(widget())->text() : QAccessibleWidget::text(kind);
    }
};

/// What the toolkit asks for the spoken side of a thing; null leaves it to the toolkit.
QAccessibleInterface* spoken(const QString&, QObject* thing) {
    if (auto* shell = qobject_cast<WindowShell*>(thing))
        return new SpokenWindow(shell);
    if (auto* option = qobject_cast<QRadioButton*>(thing))
        return new SpokenOption(option);
    if (thing->metaObject() == &QFrame::staticMetaObject) // what the toolkit calls it, programs take for a window
        return new QAccessibleWidget(static_cast<QFrame*>(thing), QAccessible::Pane);
    auto* label = qobject_cast<QLabel*>(thing);
    if (label != nullptr && label->property("decoration") == QStringLiteral("statusLine"))
        return new SpokenStatus(label);
    return nullptr;
}

} // namespace

void nameSpokenRoles() {
    QAccessible::installFactory(&spoken);
}

} // namespace opd::qt
