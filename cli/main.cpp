#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "cli/command_line.h"
#include "cli/exit_watch.h"
#include "cli/output_stream.h"
#include "cli/search_command.h"
#include "cli/system_services.h"
#include "cli/terminal.h"
#include "cli/unattended.h"
#include "forms/frm_new.h"
#include "platform/memory_settings_store.h"
#include "platform/net/qt_socket.h"
#include "platform/qt/application.h"
#include "platform/qt/local_text.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/system_files.h"
#include "setup/settings.h"
#include "text/text.h"
#include "ui/window_holder.h"
#ifdef Q_OS_WIN
#include "widgets/label_font.h"
#else
#include "widgets/program_style.h"
#endif
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

using cli::CommandLine;

constexpr int kNoDisplay = 1;
constexpr int kForEver = -1;

std::unique_ptr<platform::Socket> MakeSocket() {
    return std::make_unique<platform::QtSocket>();
}

void ShowWizard(QWidget& window) {
    ui::frmNew wizard(&window);
    wizard.exec();
}

/// Whether this system can show windows. Windows and macOS always can.
bool HasDisplay() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

int Print(const CommandLine& line) {
    using Which = cli::OutputStream::Which;
    cli::OutputStream stream(line.exit_code == 0 ? Which::Output : Which::Error);
    std::string text = platform::ToBytes(line.text);
    text::ReplaceAllIn(text, "\n", cli::kLineEnd);
    while (!text.empty() && stream.Ready(kForEver)) {
        text.erase(0, stream.Write(text));
    }
    return line.exit_code;
}

void SayThatNoDisplayIsThere() {
    std::fputs(
        "There is no display to show the window on.\n"
        "To download without one: vantorin --site ADDRESS --folder FOLDER\n",
        stderr);
}

/// Exits cleanly where Qt would abort with a core dump because a display cannot be reached.
void ExitInsteadOfAbort(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        SayThatNoDisplayIsThere();
        std::_Exit(kNoDisplay);
    }
    std::fprintf(stderr, "%s\n", platform::ToBytes(message).c_str());
}

/// `address` is the wizard's first address; "" for the last one used.
int RunWindow(const std::string& address, int argc, char** argv) {
    if (!HasDisplay()) {
        SayThatNoDisplayIsThere();
        return kNoDisplay;
    }
    qInstallMessageHandler(ExitInsteadOfAbort);
    const QApplication application = platform::MakeApplication(argc, argv);
    qInstallMessageHandler(nullptr);
#ifdef Q_OS_WIN
    // On Windows, menus and boxes would otherwise use other fonts than the forms.
    QApplication::setFont(ui::LabelFont());
#else
    QApplication::setStyle(new ui::ProgramStyle);
#endif
    QApplication::setDesktopFileName("vantorin");  // Wayland shows its icon for the window
    // The window itself ends the program, because a stop closes one window and opens another.
    QApplication::setQuitOnLastWindowClosed(false);
    platform::QtSettingsStore settings;
    platform::QtMessageBoxes boxes;
    cli::SystemServices system(settings, boxes);
    if (!address.empty()) bas_General::PutSetting("LastURL", address);
    ui::WindowHolder holder(system.Events(), {ShowWizard, MakeSocket});
    const cli::ExitWatch exit_watch(holder);
    holder.Load();
    holder.Show();
    const int exit_code = QApplication::exec();
    holder.Exit(exit_code);  // does nothing if it has ended already
    return exit_code;
}

/// Drops Qt's warnings about a missing desktop, which an unattended run does not use.
void PassOnFaultsOnly(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtCriticalMsg && type != QtFatalMsg) return;
    cli::OutputStream(cli::OutputStream::Which::Error)
        .Write(platform::ToBytes(message) + cli::kLineEnd);
}

int RunCrawl(const cli::CrawlOrder& order, int argc, char** argv) {
    qInstallMessageHandler(PassOnFaultsOnly);
    // The window is never shown, so the run needs no display, even if the environment names one.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    const QApplication application = platform::MakeApplication(argc, argv);
    platform::MemorySettingsStore settings;
    cli::Terminal terminal(order.quiet);
    cli::TerminalBoxes boxes(terminal);
    cli::SystemServices system(settings, boxes);
    ui::WindowHolder holder(system.Events(), {nullptr, MakeSocket});
    holder.Load();
    return cli::RunUnattended(order, holder, terminal);
}

/// Returns large blocks to the system as soon as they are freed. By default, the C library keeps
/// more and more of them, and a second large response would need its memory in addition.
void GiveBackLargeBlocks() {
#ifdef __GLIBC__
    constexpr int kLargeBlock = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
    mallopt(M_TRIM_THRESHOLD, kLargeBlock);
#endif
}

int RunSearch(const cli::SearchOrder& order) {
    return cli::RunSearch(order, platform::SystemFiles(""));
}

}  // namespace

int main(int argc, char** argv) {
    cli::OpenClosedStreams();
    GiveBackLargeBlocks();
#ifndef _WIN32
    std::signal(SIGXFSZ, SIG_IGN);  // a file that grows past the user's limit is a failed write
#endif
    QCoreApplication::setApplicationName("Vantorin");
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);

    const CommandLine line = cli::ReadCommandLine(arguments);
    switch (line.action) {
        case CommandLine::Action::Print:
            return Print(line);
        case CommandLine::Action::Crawl:
            return RunCrawl(line.order, argc, argv);
        case CommandLine::Action::Search:
            return RunSearch(line.search);
        case CommandLine::Action::OpenWindow:
            break;
    }
    return RunWindow(line.address, argc, argv);
}
