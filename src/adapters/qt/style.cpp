#include "adapters/qt/style.h"

#include "adapters/qt/basics/colours.h"
#include "adapters/qt/desk_style.h"

#include <QApplication>
#include <QToolTip>

#include <iterator>
#include <memory>

namespace opd::qt {

namespace {

/// What "@name" stands for in the style sheet. A name that another one begins with comes behind that one.
const std::pair<const char*, const QColor&> named[] = {
    {"@window", colours::window},
    {"@paperInUse", colours::paperInUse},
    {"@paperRefused", colours::paperRefused},
    {"@paperShowing", colours::paperShowing},
    {"@paper", colours::paper},
    {"@otherRow", colours::otherRow},
    {"@buttonUnusable", colours::buttonUnusable},
    {"@button", colours::button},
    {"@heading", colours::heading},
    {"@text", colours::text},
    {"@quietText", colours::quietText},
    {"@unusableText", colours::unusableText},
    {"@title", colours::title},
    {"@accent", colours::accent},
    {"@border", colours::border},
    {"@line", colours::line},
    {"@alert", colours::alert},
    {"@needed", colours::needed},
};

// One accent for what is active, grey for what only shows, white for what takes input. Text takes its colour from the
// palette, which knows what cannot be used, wherever it is not said here.
const char* const look = R"(
QGroupBox { font-weight: bold; border: 1px solid @line; border-radius: 4px; margin-top: 8px; padding-top: 4px; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 4px; color: @title; }
QGroupBox * { font-weight: normal; }
QLineEdit, QPlainTextEdit { background: @paper; border: 1px solid @border; border-radius: 3px; padding: 1px 4px; min-height: 19px; }
QLineEdit[needed="true"] { border-left: 4px solid @needed; padding-left: 1px; }
QLineEdit:focus, QPlainTextEdit:focus { border: 2px solid @accent; padding: 0 3px; background: @paperInUse; }
QLineEdit[readOnly="true"], QPlainTextEdit[readOnly="true"], QLineEdit[lookupName="true"], QLineEdit:disabled, QPlainTextEdit:disabled {
  background: @paperShowing; color: #33434f; }
QLineEdit[prominent="true"] { font-size: 15pt; font-weight: bold; }
QAbstractSpinBox QLineEdit, QAbstractSpinBox QLineEdit:focus, QAbstractSpinBox QLineEdit:disabled {
  border: 0; padding: 0; background: transparent; min-height: 0; }
QComboBox, QAbstractSpinBox { min-height: 19px; }
QLineEdit[refused="true"], QPlainTextEdit[refused="true"] {
  border: 2px solid @alert; padding: 0 3px; background: @paperRefused; }
QLineEdit[refused="true"]:focus { border: 3px solid @alert; padding: 0 2px; min-height: 17px; }
QPlainTextEdit[refused="true"]:focus { border: 3px solid @alert; padding: 0 2px; }
QLabel[refused="true"], QCheckBox[refused="true"], QRadioButton[refused="true"] { color: @alert; }
QLabel[needed="true"], QRadioButton[needed="true"] { color: @needed; }
QLabel[hint="true"] { color: @quietText; }
QLabel[alert="true"] { color: @alert; font-weight: bold; }
QFrame[decoration="heading"] { background: @heading; border: 0; border-bottom: 1px solid @line; }
QLabel[title="true"], QLabel[titleShadow="true"] { font-size: 14pt; font-weight: bold; }
QLabel[title="true"] { color: @title; padding: 0 1px 1px 0; }
QLabel[titleShadow="true"] { color: @paper; padding: 1px 0 0 1px; }
QTableView { background: @paper; alternate-background-color: @otherRow; border: 1px solid @border; padding: 1px; outline: 0; }
QTableView:focus { border: 2px solid @accent; padding: 0; }
QTableView[refused="true"] { border-color: @alert; }
QTableView QLineEdit { border: 1px solid @border; border-radius: 0; padding: 0 2px; min-height: 0; }
QTableView QLineEdit:focus { border: 2px solid @accent; padding: 0 1px; }
QHeaderView::section { background: @heading; border: 0; border-right: 1px solid @line; border-bottom: 1px solid @line;
  padding: 4px 3px; font-weight: bold; }
QPushButton { color: @text; background: @button; outline: 0; border: 1px solid @border; border-radius: 3px; padding: 3px 14px; min-height: 20px; }
QPushButton:hover { background: #e6eff5; }
QPushButton:pressed { background: #d3e2ec; }
QPushButton:focus { border: 2px solid @accent; padding: 2px 13px; }
QPushButton:disabled { color: @unusableText; background: @buttonUnusable; }
QPushButton[primary="true"] { background: #1b6a98; border-color: #14526f; color: @paper; font-weight: bold; }
QPushButton[primary="true"]:hover { background: #2079ad; }
QPushButton[primary="true"]:focus { border: 2px solid #f0b429; }
QPushButton[primary="true"]:disabled { background: @heading; border-color: @border; color: @quietText; }
QPushButton[hospitalPrint="true"] { background: #38a4fc; border-color: #14526f; font-weight: bold; }
QPushButton[hospitalPrint="true"]:hover { background: #9eaa79; }
QPushButton[hospitalPrint="true"]:focus { border-color: #0b2f42; }
QPushButton[hospitalPrint="true"]:disabled { background: @buttonUnusable; border-color: @border; }
QPushButton[small="true"] { padding: 3px 8px; }
QPushButton[small="true"]:focus { padding: 2px 7px; }
QPushButton[lookup="true"] { padding: 0 4px; min-width: 18px; min-height: 18px; }
QPushButton[lookup="true"]:focus { padding: 0 3px; min-height: 16px; }
QMenu { background: @paper; border: 1px solid @border; padding: 2px; }
QMenu::item { padding: 4px 24px 4px 12px; color: @text; }
QMenu::item:selected { background: @accent; color: @paper; }
QMenu::item:disabled { background: @paper; color: @unusableText; }
QMenu::separator { height: 1px; background: @line; margin: 2px 0; }
QToolTip { background: @paper; color: @text; border: 1px solid @border; padding: 2px; }
QAbstractItemView { background: @paper; color: @text; }
QCalendarWidget #qt_calendar_navigationbar { background: @accent; }
QCalendarWidget QToolButton { color: @paper; }
)";

/// A colour for what can be used and one for what cannot.
struct Shade {
    QPalette::ColorRole role;
    const QColor& usable;
    const QColor& unusable;
};

const Shade shades[] = {
    {QPalette::Window, colours::window, colours::window},
    {QPalette::WindowText, colours::text, colours::unusableText},
    {QPalette::Base, colours::paper, colours::paperShowing},
    {QPalette::AlternateBase, colours::otherRow, colours::otherRow},
    {QPalette::Text, colours::text, colours::unusableText},
    {QPalette::PlaceholderText, colours::text, // what a box holds that is no entry of its list
     colours::unusableText},
    {QPalette::Button, colours::button, colours::buttonUnusable},
    {QPalette::ButtonText, colours::text, colours::unusableText},
    {QPalette::BrightText, colours::paper, colours::paper},
    {QPalette::Light, colours::paper, colours::paper},
    {QPalette::Midlight, colours::heading, colours::heading},
    {QPalette::Mid, colours::line, colours::line},
    {QPalette::Dark, colours::border, colours::border},
    {QPalette::Shadow, colours::quietText, colours::quietText},
    {QPalette::Highlight, colours::accent, colours::border},
    {QPalette::HighlightedText, colours::paper, colours::paper},
    {QPalette::Link, colours::accent, colours::unusableText},
    {QPalette::LinkVisited, colours::title, colours::unusableText},
    {QPalette::ToolTipBase, colours::paper, colours::paper},
    {QPalette::ToolTipText, colours::text, colours::text},
};
static_assert(std::size(shades) == QPalette::NColorRoles - 1, "every role but that of no role has its colour");

QPalette makePalette() {
    QPalette palette;
    for (const Shade& shade : shades) {
        palette.setColor(QPalette::Active, shade.role, shade.usable);
        palette.setColor(QPalette::Inactive, shade.role, shade.usable);
        palette.setColor(QPalette::Disabled, shade.role, shade.unusable);
    }
    palette.setColor(QPalette::Inactive, QPalette::Highlight, colours::remembered);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, colours::text);
    return palette;
}

const QPalette& deskPalette() {
    static const QPalette palette = makePalette();
    return palette;
}

QString makeStyleSheet() {
    QString sheet = QString::fromLatin1(look);
    for (const auto& [name, colour] : named)
        sheet.replace(QLatin1String(name), colour.name());
    return sheet;
}

} // namespace

void dress(QApplication& /*application*/) {
    QApplication::setStyle(std::make_unique<DeskStyle>().release()); // the application owns it
    QApplication::setPalette(deskPalette());
    QToolTip::setPalette(deskPalette());
}

void dress(QWidget& window) {
    static const QString sheet = makeStyleSheet();
    window.setPalette(deskPalette());
    // Under a style sheet widgets take their colours from the application instead of their parent.
    for (QWidget* child : window.findChildren<QWidget*>())
        child->setPalette(deskPalette());
    window.setStyleSheet(window.styleSheet() + sheet);
}

// What has its colours keeps them: the style sheet has changed them since.
void colour(QWidget& window) {
    for (QWidget* child : window.findChildren<QWidget*>())
        if (!child->testAttribute(Qt::WA_SetPalette))
            child->setPalette(deskPalette());
}

} // namespace opd::qt
