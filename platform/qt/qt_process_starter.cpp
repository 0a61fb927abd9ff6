#include "platform/qt/qt_process_starter.h"

#include <QProcess>
#include <QUrl>
#include <QtGlobal>
#ifdef Q_OS_WIN
#include <qt_windows.h>
#include <shlwapi.h>
#endif

#include "platform/path_text.h"
#include "platform/qt/local_text.h"

namespace platform {

namespace {

enum class WindowSize { Normal, Maximized };

/// Starts `program` detached, with `argument` as its only argument. Only Windows uses `size`, which
/// the program may ignore.
bool Start(const QString& program, const QString& argument, [[maybe_unused]] WindowSize size) {
    QProcess process;
    process.setProgram(program);
#ifdef Q_OS_WIN
    // The explorer takes its command line literally. Neither a path nor an encoded address contains
    // a quote.
    process.setNativeArguments(QLatin1Char('"') + argument + QLatin1Char('"'));
    process.setCreateProcessArgumentsModifier([size](QProcess::CreateProcessArguments* arguments) {
        arguments->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        arguments->startupInfo->wShowWindow =
            size == WindowSize::Maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    });
#else
    process.setArguments({argument});
#endif
    // Keep a file manager's output out of our terminal.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

#if defined(Q_OS_WIN)
QString FolderOpener() {
    return qEnvironmentVariable("windir") + QStringLiteral("\\explorer.exe");
}
QString AddressOpener() {
    // Fixed on purpose: only the command for folders uses "windir".
    return QStringLiteral("c:\\windows\\explorer.exe");
}
#else
QString FolderOpener() {
#ifdef Q_OS_MACOS
    return QStringLiteral("open");
#else
    return QStringLiteral("xdg-open");
#endif
}
QString AddressOpener() {
    return FolderOpener();
}
#endif

/// Whether opening the file, which may come from anyone, would run it.
bool RunsAsProgram([[maybe_unused]] const std::string& file) {
#ifdef Q_OS_WIN
    const std::size_t dot = file.rfind('.');
    return dot != std::string::npos &&
           AssocIsDangerous(FromBytes(file.substr(dot)).toStdWString().c_str());
#else
    return false;  // the desktop's opener does not run programs
#endif
}

}  // namespace

bool QtProcessStarter::ExploreFolder(const std::string& folder) {
    // A system path starts with the root or a drive, so it is never taken for an option.
    const auto path = SystemPathOf(folder);
    return path && Start(FolderOpener(), FromBytes(*path), WindowSize::Normal);
}

bool QtProcessStarter::OpenFile(const std::string& file) {
    const auto path = ResolvePathText(file);
    return path &&
           ExploreFolder(RunsAsProgram(*path) ? std::string(ParentOfResolved(*path)) : *path);
}

#ifdef Q_OS_WIN

bool QtProcessStarter::OpenPage(const std::string& file, const std::string&) {
    return OpenFile(file);  // the system drops what follows "#" in the address of a file
}

#else

bool QtProcessStarter::OpenPage(const std::string& file, const std::string& words) {
    const auto path = SystemPathOf(file);
    // Only a browser accepts a file's address with a fragment.
    if (!path || words.empty() || path->find("htm", path->find_last_of("./")) == path->npos) {
        return OpenFile(file);
    }
    const QByteArray place = QByteArray::fromStdString(*path).toPercentEncoding("/");
    const QByteArray text = QUrl::toPercentEncoding(FromBytes(words), "", "-");
    return Start(FolderOpener(), QString::fromLatin1("file://" + place + "#:~:text=" + text),
                 WindowSize::Normal);
}

#endif

bool QtProcessStarter::OpenAddress(const std::string& address) {
    // An encoded address contains no blank, quote or control character, and it starts with its
    // scheme.
    const QUrl url(FromBytes(address), QUrl::TolerantMode);
    if (!url.isValid() || url.scheme() != QLatin1String("http") || url.host().isEmpty()) {
        return false;
    }
    return Start(AddressOpener(), QString::fromLatin1(url.toEncoded()), WindowSize::Maximized);
}

}  // namespace platform
