#include "cli/system_services.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

#include "platform/qt/local_text.h"

namespace cli {

namespace {

/// Whether a file can be created in the folder. On Windows the folder's attributes do not show
/// this.
bool IsWritable(const QDir& folder) {
    return QTemporaryFile(folder.filePath("vantorin")).open();
}

/// The folder for the program's own lists, as a system path: beside the program if that is a
/// writable folder of its own (a portable copy), otherwise the user's data folder.
std::string ProgramFolder() {
    const QDir beside(QCoreApplication::applicationDirPath());
    const bool among_others = beside.dirName() == "bin" || beside.dirName() == "games";
    if (!among_others && IsWritable(beside)) {
        return platform::ToBytes(beside.path());
    }
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(data);
    return platform::ToBytes(data);
}

}  // namespace

SystemServices::SystemServices(platform::SettingsStore& settings, platform::MessageBoxes& boxes)
    : files_(ProgramFolder()), services_{events_, files_, settings, page_text_, processes_, boxes} {
    platform::InstallSystem(&services_);
}

SystemServices::~SystemServices() {
    platform::InstallSystem(nullptr);
}

}  // namespace cli
