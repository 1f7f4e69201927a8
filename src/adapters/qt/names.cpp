#include "adapters/qt/names.h"

#include "adapters/qt/basics/qt_text.h"

namespace opd::qt {

QString widgetName(const ui::Control& control) {
    QString name = toQt(control.name());
    return name.replace('(', '_').remove(')');
}

QString labelName(const ui::Control& control) {
    return QStringLiteral("label_") + widgetName(control);
}

bool hasLabel(const ui::Control& control) {
    switch (control.kind()) {
    case ui::Kind::TextBox:
    case ui::Kind::MaskedBox:
    case ui::Kind::DatePicker:
    case ui::Kind::ComboBox:
        return !control.caption().empty();
    default:
        return false;
    }
}

} // namespace opd::qt
