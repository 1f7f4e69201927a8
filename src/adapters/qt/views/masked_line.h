#pragma once

#include <QString>

#include <string>

class QLineEdit;

/// A line with a mask. An empty place is shown by a sign, for a blank is too narrow to be seen as one, and is a blank
/// for everybody else.
namespace opd::qt::masked {

/// Gives the line a mask ("##/##/####"), or none when it is empty.
void setMask(QLineEdit& line, const std::string& mask);

/// What stands in the line, a blank in each empty place.
QString text(const QLineEdit& line);

/// Shows a text with a blank in each empty place.
void show(QLineEdit& line, const QString& text);

/// A shown part of the line as it reads for everybody else.
QString blanked(QString shown);

/// Puts a text in at the cursor; a whole one takes the place of what the line held.
void insert(QLineEdit& line, const std::string& mask, const QString& text);

/// A separator closes the part before it, and a blank empties a place. False for a digit, which the line takes itself.
bool takes(QLineEdit& line, const std::string& mask, char32_t character);

} // namespace opd::qt::masked
