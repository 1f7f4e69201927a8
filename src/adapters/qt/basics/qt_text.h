#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace opd::qt {

/// The one place where the core's UTF-8 becomes the toolkit's text and back.
inline QString toQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

} // namespace opd::qt
