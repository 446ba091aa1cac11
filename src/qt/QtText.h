#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace skyvert {

/// UTF-8 as Qt's own text; bytes that are no UTF-8 become replacement characters.
inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Qt's text as UTF-8.
inline std::string toUtf8(const QString& text) {
    return text.toStdString();
}

} // namespace skyvert
