#include "adapters/qt/message_box.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/style.h"

#include <QGridLayout>
#include <QLabel>
#include <QStyle>

namespace opd::qt {

namespace {

QMessageBox::Icon iconOf(ui::Icon icon) {
    switch (icon) {
    case ui::Icon::Critical:
        return QMessageBox::Critical;
    case ui::Icon::Question:
        return QMessageBox::Question;
    case ui::Icon::Exclamation:
        return QMessageBox::Warning;
    case ui::Icon::Information:
        return QMessageBox::Information;
    case ui::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// Keeps a box wide enough for its title: the toolkit reckons with plain letters and no buttons in the title bar.
void makeRoomForTitle(QMessageBox& box) {
    QFont bold = box.font();
    bold.setBold(true);
    const int buttonsOfFrame = 4 * box.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &box);
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + buttonsOfFrame;
    auto* const grid = static_cast<QGridLayout*>(box.layout());
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

QMessageBox::StandardButton standardButton(ui::Answer answer) {
    switch (answer) {
    case ui::Answer::Cancel:
        return QMessageBox::Cancel;
    case ui::Answer::Yes:
        return QMessageBox::Yes;
    case ui::Answer::No:
        return QMessageBox::No;
    case ui::Answer::Ok:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButtons buttonsOf(ui::Buttons buttons) {
    QMessageBox::StandardButtons all;
    for (const ui::Answer answer : ui::answersOf(buttons))
        all |= standardButton(answer);
    return all;
}

void showDetail(QMessageBox& box, const QString& detail) {
    box.setInformativeText(detail);
    for (QLabel* label : box.findChildren<QLabel*>())
        if (label->text() == detail)
            label->setTextFormat(Qt::PlainText);
}

} // namespace

void fill(QMessageBox& box, const ui::Message& message) {
    box.setWindowTitle(toQt(message.caption));
    box.setTextFormat(Qt::PlainText); // a name in a message is no markup
    box.setText(toQt(message.text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    showDetail(box, toQt(message.detail));
    box.setIcon(iconOf(message.icon));
    box.setStandardButtons(buttonsOf(message.buttons));
    box.setDefaultButton(standardButton(message.defaultAnswer.value_or(ui::answersOf(message.buttons).front())));
    box.setEscapeButton(standardButton(ui::escapeAnswer(message.buttons)));
    dress(box);
    makeRoomForTitle(box);
}

QAbstractButton* buttonOf(const QMessageBox& box, ui::Answer answer) {
    return box.button(standardButton(answer));
}

ui::Answer answerOf(int button) {
    switch (button) {
    case QMessageBox::Cancel:
        return ui::Answer::Cancel;
    case QMessageBox::Yes:
        return ui::Answer::Yes;
    case QMessageBox::No:
        return ui::Answer::No;
    default:
        return ui::Answer::Ok;
    }
}

} // namespace opd::qt
