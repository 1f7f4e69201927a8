#include "adapters/qt/views/button_views.h"

#include "adapters/qt/basics/qt_text.h"

#include <QCheckBox>

namespace opd::qt {

ButtonView::ButtonView(ui::Control& shown, QWidget* shownIn) : ControlView(shown, shownIn, nullptr) {
    if (shown.kind() == ui::Kind::Button)
        QObject::connect(button(), &QAbstractButton::clicked, button(), [this] { press(); });
}

void ButtonView::press() {
    if (isWriting())
        return;
    window().click(control());
    if (!isReleased())
        show(ui::Aspect::Checked);
}

void ButtonView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::Caption)
        button()->setText(toQt(control().caption()));
}

QString ButtonView::shownText() const {
    return button()->text();
}

// Whoever ticks it, the clerk's mouse or an assistive program, clicks it.
ToggleView::ToggleView(ui::Control& shown, QWidget* shownIn) : ButtonView(shown, shownIn) {
    button()->setAutoExclusive(false);
    if (auto* box = qobject_cast<QCheckBox*>(button()))
        QObject::connect(box, &QCheckBox::stateChanged, box, [this] { press(); });
    else
        QObject::connect(button(), &QAbstractButton::toggled, button(), [this] { press(); });
}

void ToggleView::show(ui::Aspect aspect) {
    ButtonView::show(aspect);
    if (aspect == ui::Aspect::Checked)
        write([this] { showState(); });
}

void ToggleView::showState() {
    if (control().kind() == ui::Kind::OptionButton) {
        button()->setChecked(static_cast<const ui::OptionButton&>(control()).selected());
        return;
    }
    auto* box = static_cast<QCheckBox*>(button());
    const int value = static_cast<const ui::CheckBox&>(control()).value();
    box->setTristate(value == 2);
    box->setCheckState(value == 2 ? Qt::PartiallyChecked : value == 1 ? Qt::Checked : Qt::Unchecked);
}

QPoint ToggleView::clickPoint() const {
    return {10, button()->height() / 2};
}

void LabelView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::Caption)
        static_cast<QLabel*>(widget())->setText(toQt(ui::plainCaption(control().caption())));
}

QString LabelView::shownText() const {
    return static_cast<QLabel*>(widget())->text();
}

} // namespace opd::qt
