#pragma once

#include "ui/desktop.h"

#include <QMessageBox>

namespace opd::qt {

/// Fills a message box: text, caption, icon, buttons, the one that Enter presses and the one that Esc presses.
void fill(QMessageBox& box, const ui::Message& message);

/// The button of a box that stands for an answer.
QAbstractButton* buttonOf(const QMessageBox& box, ui::Answer answer);

/// The answer that a button of a box stands for.
ui::Answer answerOf(int standardButton);
} // namespace opd::qt
