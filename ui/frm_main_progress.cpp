#include <QDialog>

#include "engine/endings.h"
#include "ui/frm_main.h"

/// What the main window tells of how far a crawl is.
namespace ui {

namespace {

constexpr int kProgressMilliseconds = 250;

QString Count(std::int64_t count) {
    return QString::fromStdString(bas_Connections::FormatCount(count));
}

}  // namespace

void frmMain::CrawlBegins() {
    crawled_ = true;
    response_ended_ = false;
    crawl::List2.Clear();  // the last site's links
    progress_timer_.start(kProgressMilliseconds);
    ShowProgress();
}

void frmMain::CrawlEnds() {
    progress_timer_.stop();
    if (pause_dialog_) {
        pause_dialog_->reject();        // nothing is left to pause
        move_timer_.SetEnabled(false);  // which closing the dialog has turned on
    }
    ShowProgress();
}

void frmMain::ShowProgress() {
    const bool running = engine::CrawlIsRunning();
    picture2_->Show(!running  ? ActivityLight::State::Idle
                    : paused_ ? ActivityLight::State::Paused
                              : ActivityLight::State::Downloading);
    if (!crawled_) return;
    const std::int64_t done = crawl::FilesDone;
    const std::int64_t known =
        done + static_cast<std::int64_t>(crawl::List1.Count()) + OpenConnections();
    progress_->Show(done, known, WordsOnProgress(done, known));
}

int frmMain::OpenConnections() const {
    int open = 0;
    for (const auto& socket : sockets_)
        open += socket->State() == platform::SocketState::Closed ? 0 : 1;
    return open;
}

QString frmMain::WordsOnProgress(std::int64_t done, std::int64_t known) const {
    if (!engine::CrawlIsRunning()) {
        return response_ended_ ? Count(done) + " files done"
                               : "No file came: http://" + text1_->text() +
                                     " did not answer, or not to the end.";
    }
    const QString so_far = Count(done) + " of " + Count(known) + " files found so far";
    return paused_ ? "Paused: no new files start. " + so_far : so_far;
}

}  // namespace ui
