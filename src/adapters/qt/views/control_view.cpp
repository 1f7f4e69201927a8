#include "adapters/qt/views/control_view.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/look/restyle.h"
#include "adapters/qt/views/button_views.h"
#include "adapters/qt/views/container_views.h"
#include "adapters/qt/views/date_view.h"
#include "adapters/qt/views/field_views.h"
#include "adapters/qt/views/grid_view.h"
#include "adapters/qt/views/picture_view.h"
#include "adapters/qt/views/report_pane_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTableView>
#include <QTextDocument>

namespace opd::qt {

namespace {

/// A widget that was never hidden needs no showing: it comes with its window.
void setVisible(QWidget& widget, bool visible) {
    if (!visible || widget.testAttribute(Qt::WA_WState_ExplicitShowHide))
        widget.setVisible(visible);
}

bool isDate(const ui::Control& picker) {
    return static_cast<const ui::DatePicker&>(picker).format() == ui::DatePicker::Format::Date;
}

} // namespace

template <class Deed> void ControlView::forEachPart(const Deed& deed) const {
    if (m_widget != nullptr)
        deed(*m_widget);
    if (m_label != nullptr)
        deed(*m_label);
}

ControlView::ControlView(ui::Control& control, QWidget* widget, QLabel* label)
    : m_control(control), m_widget(widget), m_label(label) {
    if (m_label != nullptr)
        m_label->setBuddy(m_widget);
    if (m_widget != nullptr && m_widget->focusPolicy() == Qt::WheelFocus)
        m_widget->setFocusPolicy(Qt::StrongFocus); // who scrolls past a field does not mean it
}

void ControlView::show(ui::Aspect aspect) {
    forEachPart([&](QWidget& part) {
        if (aspect == ui::Aspect::Enabled)
            part.setEnabled(m_control.enabled());
        else if (aspect == ui::Aspect::Visible)
            setVisible(part, m_control.visible());
    });
    if (aspect == ui::Aspect::Caption && m_label != nullptr)
        m_label->setText(toQt(m_control.caption()));
    else if (aspect == ui::Aspect::Refusal || aspect == ui::Aspect::Need)
        showMarks();
}

void ControlView::setSpoken(const QString& name, const QString& tip) {
    if (m_widget == nullptr)
        return;
    m_widget->setAccessibleName(name);
    // A list of choices is spoken of by its choice, and has nothing else to say what it is for.
    if (m_control.kind() == ui::Kind::ComboBox && m_label == nullptr)
        m_description = name;
    if (m_control.refusal().empty() && !m_control.isNeeded())
        m_widget->setAccessibleDescription(m_description);
    m_tip = tip;
    if (m_control.refusal().empty())
        forEachPart([&](QWidget& part) { part.setToolTip(tip); });
}

// A coloured frame for the eye, the reason for the mouse and for a screen reader; an edge for what is still missing.
void ControlView::showMarks() {
    const QString reason = toQt(m_control.refusal());
    const bool isNeeded = reason.isEmpty() && m_control.isNeeded();
    const QString unrefused = isNeeded ? QStringLiteral("Still needed. ") + m_description : m_description;
    const QString description = reason.isEmpty() ? unrefused.trimmed() : reason;
    if (m_widget == nullptr || m_widget->accessibleDescription() == description)
        return;
    forEachPart([&](QWidget& part) {
        part.setProperty("refused", !reason.isEmpty());
        part.setProperty("needed", isNeeded);
        part.setToolTip(reason.isEmpty() ? m_tip : Qt::convertFromPlainText(reason, Qt::WhiteSpaceNormal));
        part.setAccessibleDescription(description);
        restyle(part);
    });
}

void ControlView::letThrough(const std::function<void()>& input) {
    const QScopedValueRollback passing(m_passed, true);
    input();
}

void ControlView::write(const std::function<void()>& writing) {
    const QScopedValueRollback held(m_writing, true);
    writing();
}

void ControlView::release() {
    m_released = true;
    if (m_widget != nullptr)
        m_widget->blockSignals(true);
}

std::unique_ptr<ControlView> makeView(ui::Control& control, QWidget* widget, QLabel* label) {
    switch (control.kind()) {
    case ui::Kind::TextBox:
        if (qobject_cast<QPlainTextEdit*>(widget) != nullptr)
            return std::make_unique<MemoView>(static_cast<ui::TextBox&>(control), widget, label);
        return std::make_unique<TextView>(static_cast<ui::TextBox&>(control), widget, label);
    case ui::Kind::MaskedBox:
        return std::make_unique<MaskedView>(static_cast<ui::MaskedBox&>(control), widget, label);
    case ui::Kind::DatePicker:
        if (isDate(control))
            return std::make_unique<DateView>(static_cast<ui::DatePicker&>(control), widget, label);
        return std::make_unique<TimeView>(static_cast<ui::DatePicker&>(control), widget, label);
    case ui::Kind::ComboBox:
        return std::make_unique<ComboView>(static_cast<ui::ComboBox&>(control), widget, label);
    case ui::Kind::OptionButton:
    case ui::Kind::CheckBox:
        return std::make_unique<ToggleView>(control, widget);
    case ui::Kind::Button:
        return std::make_unique<ButtonView>(control, widget);
    case ui::Kind::Label:
        return std::make_unique<LabelView>(control, widget);
    case ui::Kind::Page:
        return std::make_unique<PageView>(control, widget);
    case ui::Kind::Tabs:
        return std::make_unique<TabsView>(static_cast<ui::Tabs&>(control), widget);
    case ui::Kind::Grid:
        return std::make_unique<GridView>(static_cast<ui::Grid&>(control), widget);
    case ui::Kind::Timer:
        return std::make_unique<TimerView>(static_cast<ui::Timer&>(control));
    case ui::Kind::Frame:
        return std::make_unique<FrameView>(control, widget);
    case ui::Kind::Picture:
        return std::make_unique<PictureView>(static_cast<ui::Picture&>(control), widget);
    case ui::Kind::ReportPane:
        return std::make_unique<ReportPaneView>(static_cast<ui::ReportPane&>(control), widget);
    case ui::Kind::Window:
        break;
    }
    return std::make_unique<ControlView>(control, widget, label);
}

bool fits(const ui::Control& control, const QWidget& widget) {
    switch (control.kind()) {
    case ui::Kind::TextBox:
        if (static_cast<const ui::TextBox&>(control).multiLine)
            return qobject_cast<const QPlainTextEdit*>(&widget) != nullptr;
        return qobject_cast<const QLineEdit*>(&widget) != nullptr;
    case ui::Kind::MaskedBox:
        return qobject_cast<const QLineEdit*>(&widget) != nullptr;
    case ui::Kind::DatePicker:
        return isDate(control) ? qobject_cast<const QLineEdit*>(&widget) != nullptr
                               : qobject_cast<const QDateTimeEdit*>(&widget) != nullptr;
    case ui::Kind::ComboBox:
        return qobject_cast<const QComboBox*>(&widget) != nullptr;
    case ui::Kind::OptionButton:
        return qobject_cast<const QRadioButton*>(&widget) != nullptr;
    case ui::Kind::CheckBox:
        return qobject_cast<const QCheckBox*>(&widget) != nullptr;
    case ui::Kind::Button:
        return qobject_cast<const QPushButton*>(&widget) != nullptr;
    case ui::Kind::Label:
    case ui::Kind::Picture:
        return qobject_cast<const QLabel*>(&widget) != nullptr;
    case ui::Kind::Frame:
        return control.caption().empty() || qobject_cast<const QGroupBox*>(&widget) != nullptr;
    case ui::Kind::Page:
    case ui::Kind::ReportPane:
        return true;
    case ui::Kind::Tabs:
        return qobject_cast<const QTabWidget*>(&widget) != nullptr;
    case ui::Kind::Grid:
        return qobject_cast<const QTableView*>(&widget) != nullptr;
    case ui::Kind::Timer:
    case ui::Kind::Window:
        break;
    }
    return false;
}

} // namespace opd::qt
