#include "adapters/qt/style.h"

#include <QApplication>
#include <QPushButton>
#include <QStyleFactory>

namespace opd::qt {

namespace {

// One accent for what is active, grey for what only shows, white for what takes input.
const char* const look = R"(
QWidget { color: #1d2a35; }
QGroupBox { font-weight: bold; border: 1px solid #c3ccd4; border-radius: 4px; margin-top: 8px; padding-top: 4px; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 4px; color: #1f5a7a; }
QGroupBox * { font-weight: normal; }
QLineEdit, QPlainTextEdit { background: #ffffff; border: 1px solid #9fb0bd; border-radius: 3px; padding: 1px 4px; min-height: 19px; }
QLineEdit:focus, QPlainTextEdit:focus { border: 2px solid #1b75a8; padding: 0 3px; background: #fffdf0; }
QLineEdit[readOnly="true"], QLineEdit[lookupName="true"], QLineEdit:disabled, QPlainTextEdit:disabled {
  background: #e9eef2; color: #33434f; }
QLineEdit[prominent="true"] { font-size: 15pt; font-weight: bold; }
QAbstractSpinBox QLineEdit, QAbstractSpinBox QLineEdit:focus, QAbstractSpinBox QLineEdit:disabled {
  border: 0; padding: 0; background: transparent; min-height: 0; }
QComboBox, QAbstractSpinBox { min-height: 19px; }
QLineEdit[refused="true"], QPlainTextEdit[refused="true"], QComboBox[refused="true"], QAbstractSpinBox[refused="true"] {
  border: 2px solid #b3261e; }
QLineEdit[refused="true"], QPlainTextEdit[refused="true"] { padding: 0 3px; background: #fff1f0; }
QLabel[refused="true"], QCheckBox[refused="true"], QRadioButton[refused="true"] { color: #b3261e; }
QLabel[hint="true"] { color: #66747f; }
QLabel[alert="true"] { color: #b3261e; font-weight: bold; }
QFrame[decoration="heading"] { background: #e1e8ed; border: 0; border-bottom: 1px solid #c3ccd4; }
QLabel[title="true"], QLabel[titleShadow="true"] { font-size: 14pt; font-weight: bold; }
QLabel[title="true"] { color: #1f5a7a; padding: 0 1px 1px 0; }
QLabel[titleShadow="true"] { color: #ffffff; padding: 1px 0 0 1px; }
QTableView { background: #ffffff; alternate-background-color: #f2f6f9; border: 2px solid #c3ccd4; outline: 0;
  selection-background-color: #1b75a8; selection-color: #ffffff; }
QTableView:focus { border-color: #1b75a8; }
QTableView[refused="true"] { border-color: #b3261e; }
QTableView QLineEdit, QTableView QLineEdit:focus { border: 2px solid #1b75a8; border-radius: 0; padding: 0 1px; min-height: 0; }
QHeaderView::section { background: #e1e8ed; border: 0; border-right: 1px solid #c3ccd4; border-bottom: 1px solid #c3ccd4;
  padding: 4px 3px; font-weight: bold; }
QPushButton { background: #f7f9fa; border: 1px solid #8fa1af; border-radius: 3px; padding: 3px 14px; min-height: 20px; }
QPushButton:hover { background: #e6eff5; }
QPushButton:pressed { background: #d3e2ec; }
QPushButton:focus { border: 2px solid #1b75a8; padding: 2px 13px; }
QPushButton:disabled { color: #93a0aa; border-color: #c3ccd4; background: #eef1f3; }
QPushButton[primary="true"] { background: #1b6a98; border-color: #14526f; color: #ffffff; font-weight: bold; }
QPushButton[primary="true"]:hover { background: #2079ad; }
QPushButton[primary="true"]:focus { border: 2px solid #f0b429; }
QPushButton[primary="true"]:disabled { background: #b8c8d3; border-color: #b8c8d3; color: #f4f7f9; }
QPushButton[hospitalPrint="true"] { background: #38a4fc; border-color: #14526f; font-weight: bold; }
QPushButton[hospitalPrint="true"]:hover { background: #9eaa79; }
QPushButton[small="true"] { padding: 3px 8px; }
QPushButton[lookup="true"] { padding: 0 4px; min-width: 18px; min-height: 18px; }
QLabel:disabled, QCheckBox:disabled, QRadioButton:disabled { color: #7d8a95; }
)";

} // namespace

void dress(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette = application.palette();
    palette.setColor(QPalette::Window, QColor(0xf4, 0xf6, 0xf8));
    palette.setColor(QPalette::Highlight, QColor(0x1b, 0x75, 0xa8));
    QApplication::setPalette(palette);
}

void dress(QWidget& shell) {
    shell.setStyleSheet(QString::fromLatin1(look));
}

} // namespace opd::qt
