#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace skyvert {

/// Converts UTF-8 to Qt's text; invalid bytes become replacement characters.
inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Converts Qt's text to UTF-8.
inline std::string toUtf8(const QString& text) {
    return text.toStdString();
}

} // namespace skyvert
