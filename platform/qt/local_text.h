#pragma once

#include <QString>
#include <string>

namespace platform {

/// Converts between bytes in the system's local 8-bit encoding and Qt's text.
inline QString FromBytes(const std::string& bytes) {
    return QString::fromLocal8Bit(bytes.data(), static_cast<qsizetype>(bytes.size()));
}
inline std::string ToBytes(const QString& text) {
    return text.toLocal8Bit().toStdString();
}

}  // namespace platform
