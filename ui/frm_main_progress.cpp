#include <QDialog>
#include <QDir>

#include "engine/endings.h"
#include "engine/scheduler.h"
#include "engine/start_page.h"
#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "ui/frm_main.h"

/// How the main window shows the progress of a crawl.
namespace ui {

namespace {
constexpr int kProgressMilliseconds = 250;
}

void frmMain::CrawlBegins() {
    reporter_.Reset();
    crawl::List2.Clear();  // the last site's links
    progress_timer_.start(kProgressMilliseconds);
    ShowProgress();
}

void frmMain::CrawlEnds() {
    progress_timer_.stop();
    if (pause_dialog_) {
        pause_dialog_->reject();        // nothing is left to pause
        move_timer_.SetEnabled(false);  // closing the dialog has turned it on
    }
    ShowProgress();
}

void frmMain::ShowProgress() {
    const bool running = engine::CrawlIsRunning();
    picture2_->Show(!running  ? ActivityLight::State::Idle
                    : paused_ ? ActivityLight::State::Paused
                              : ActivityLight::State::Downloading);
    progress_->Show(reporter_.Summary({.running = running,
                                       .paused = paused_,
                                       .has_connections = bas_Connections::ConnectionsCount() > 0,
                                       .folder = ShownFolder()}));
    OfferCopy();
}

/// The user may create and delete files, too, so this is checked again whenever the window becomes
/// active.
void frmMain::OfferCopy() {
    const bool is_there = !bas_Connections::StartPage().empty();
    open_copy_->setEnabled(is_there);
    progress_->OfferCopy(is_there && crawl::Report.Count() > 0 && !engine::CrawlIsRunning());
}

/// The reported crawl's folder as a system path, with "~" for the user's home folder.
std::string frmMain::ShownFolder() {
    const std::string folder = crawl::ReportFolder;
    const QString path =
        QDir::cleanPath(platform::FromBytes(platform::SystemPathOf(folder).value_or(folder)));
    const QString home = QDir::homePath();
    if (path != home && !path.startsWith(home + "/")) {
        return platform::ToBytes(QDir::toNativeSeparators(path));
    }
    return platform::ToBytes("~" + QDir::toNativeSeparators(path.mid(home.size())));
}

}  // namespace ui
