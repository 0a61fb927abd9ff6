#include "platform/qt/qt_settings_store.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

#include "platform/qt/local_text.h"

namespace platform {

namespace {

/// Opened anew for each use: what another instance of the program has stored is seen, and what is
/// put is on disk when this returns.
QSettings Open(const std::string& application) {
#ifdef Q_OS_WIN
    // The maker's name is the program's; once is enough in the registry.
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
    // Only text is ever put; anything else is a damaged store.
    return value.typeId() == QMetaType::QString ? ToBytes(value.toString()) : fallback;
}

void QtSettingsStore::Put(const std::string& application, const std::string& section,
                          const std::string& key, const std::string& value) {
    Open(application).setValue(PathOf(section, key), FromBytes(value));
}

}  // namespace platform
