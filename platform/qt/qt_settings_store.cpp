#include "platform/qt/qt_settings_store.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

#include "platform/qt/local_text.h"

namespace platform {

namespace {

/// Opened for each use, so that it sees what another instance has stored and writes to the disk at
/// once.
QSettings Open(const std::string& application) {
#ifdef Q_OS_WIN
    // The organization has the program's name; once is enough in the registry.
    return QSettings(QStringLiteral("HKEY_CURRENT_USER\\Software\\") + FromBytes(application),
                     QSettings::NativeFormat);
#else
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Vantorin"),
                     FromBytes(application));
#endif
}

QString PathOf(const std::string& section, const std::string& key) {
    return FromBytes(section) + QLatin1Char('/') + FromBytes(key);
}

}  // namespace

std::string QtSettingsStore::Get(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& fallback) const {
    const QVariant value = Open(application).value(PathOf(section, key));
    // Only text is stored; anything else means a damaged store.
    return value.typeId() == QMetaType::QString ? ToBytes(value.toString()) : fallback;
}

void QtSettingsStore::Put(const std::string& application, const std::string& section,
                          const std::string& key, const std::string& value) {
    Open(application).setValue(PathOf(section, key), FromBytes(value));
}

}  // namespace platform
