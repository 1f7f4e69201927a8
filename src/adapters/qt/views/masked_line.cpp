#include "adapters/qt/views/masked_line.h"

#include "adapters/qt/basics/qt_text.h"
#include "base/text/text.h"
#include "ui/line_edit.h"

#include <QLineEdit>

namespace opd::qt::masked {

namespace {

constexpr QChar place = u'_'; ///< where a digit is missing

QString placed(QString text) {
    return text.replace(' ', place);
}

} // namespace

void setMask(QLineEdit& line, const std::string& mask) {
    QString digits = toQt(mask).replace('#', '0'); // the toolkit's sign for a digit or nothing
    if (!digits.isEmpty())
        digits += QStringLiteral(";") + place;
    if (line.inputMask() != digits)
        line.setInputMask(digits);
}

// text() of the line leaves the blanks out; what is displayed is what the rules look at.
QString text(const QLineEdit& line) {
    return blanked(line.displayText());
}

void show(QLineEdit& line, const QString& text) {
    line.setText(placed(text));
    line.setCursorPosition(0);
}

QString blanked(QString shown) {
    return shown.replace(place, ' ');
}

void insert(QLineEdit& line, const std::string& mask, const QString& text) {
    if (fromQt(text).size() == mask.size())
        line.selectAll();
    line.insert(placed(text));
}

bool takes(QLineEdit& line, const std::string& mask, char32_t character) {
    if (character >= U'0' && character <= U'9')
        return false;
    ui::LineEdit edit;
    edit.load(fromQt(text(line)), {.mask = mask});
    const int start = line.selectionStart();
    const auto cursor = static_cast<std::size_t>(line.cursorPosition());
    edit.place(start < 0 ? cursor : static_cast<std::size_t>(start),
               start < 0 ? cursor : static_cast<std::size_t>(line.selectionEnd()));
    edit.insert(opd::text::encode(character));
    if (const QString now = toQt(edit.text()); now != text(line)) {
        line.selectAll();
        line.insert(placed(now));
    }
    line.setCursorPosition(static_cast<int>(edit.caret()));
    return true;
}

} // namespace opd::qt::masked
