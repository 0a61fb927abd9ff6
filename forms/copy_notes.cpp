#include "forms/copy_notes.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <cstdint>

#include "engine/endings.h"
#include "engine/site_start.h"
#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "widgets/controls.h"
#include "widgets/label_font.h"
#include "widgets/note_line.h"

namespace ui {

namespace {

using Placeholders = bas_Output::CopySurvey::Placeholders;

constexpr int kAfterLastKeyMilliseconds = 300;
/// A slice ends at whichever limit comes first. On a slow disk, a single step may exceed the time.
constexpr int kSliceMilliseconds = 4;
constexpr int kSliceSteps = 500;

std::string Counted(std::int64_t count, const std::string& what) {
    return bas_Connections::FormatCount(count) + " " + what + (count == 1 ? "" : "s");
}

bool AgreesToRemove(std::int64_t count, const std::string& folder) {
    const std::string question = "Do you want to remove " + Counted(count, "unfinished file") +
                                 " of an interrupted download from this folder?\r\n\r\n" +
                                 platform::SystemPathOf(folder).value_or(folder);
    return platform::System().boxes.MsgBox(question, platform::BoxStyle::InformationYesNo,
                                           "Unfinished Files") == platform::BoxAnswer::Yes;
}

/// Whether another running copy of the program is saving a site in the folder.
bool IsBeingFilled(const std::string& target_folder) {
    return platform::System().files.ClaimFolder(target_folder) == nullptr;
}

}  // namespace

CopyNotes::CopyNotes(QWidget* form)
    : QObject(form),
      copy_(MakeParagraph("CopyNote", "", form)),
      unfinished_(new NoteLine("UnfinishedNote", form)) {
    copy_->setFont(SmallLabelFont());
    unfinished_->hide();
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &CopyNotes::Work);
    connect(unfinished_, &NoteLine::LinkClicked, this, &CopyNotes::AskAndRemove);
}

void CopyNotes::LookFor(const std::string& address, const std::string& folder) {
    const std::string host =
        bas_Connections::SiteHostOf(bas_Connections::CleanTypedAddress(address));
    const std::string found = bas_Output::HostFolder(folder, host).value_or("");
    if (found == folder_) return;
    target_folder_ = folder;
    host_ = host;
    folder_ = found;
    if (!removing_) LookLater();
}

void CopyNotes::LookLater() {
    copy_->clear();
    ShowUnfinished("", "");
    survey_.reset();
    timer_.start(kAfterLastKeyMilliseconds);
}

void CopyNotes::Stop() {
    timer_.stop();
    survey_.reset();
}

void CopyNotes::Work() {
    if (survey_ == nullptr) {
        if (folder_.empty()) return;
        survey_ = std::make_unique<bas_Output::CopySurvey>(folder_, Placeholders::Count);
    }
    QElapsedTimer clock;
    clock.start();
    bool more = true;
    for (int step = 0; more && step < kSliceSteps && clock.elapsed() < kSliceMilliseconds; ++step)
        more = survey_->Step();
    if (more) timer_.start(0);
    if (!removing_) {
        ShowFound(!more);
    } else if (more) {
        ShowRemoved();
    } else {
        removing_ = false;
        claim_.reset();
        emit Removing(false);
        LookLater();
    }
}

void CopyNotes::ShowFound(bool all) {
    if (survey_->Files() > 0) {
        const std::string so_far = all ? "" : " so far";
        copy_->setText(platform::FromBytes("There is a copy of " + host_ + " already (" +
                                           Counted(survey_->Files(), "file") + so_far +
                                           "): its files will not be fetched again"));
    }
    const std::int64_t unfinished = survey_->Unfinished();
    if (unfinished == 0 || IsBeingFilled(target_folder_)) return;
    const QString link = unfinished == 1 ? "&Remove it" : "&Remove them";
    ShowUnfinished(platform::FromBytes(Counted(unfinished, "unfinished file") +
                                       " of an interrupted download would be left out"),
                   all ? link : QString());
}

void CopyNotes::ShowRemoved() {
    ShowUnfinished(
        platform::FromBytes("Removed so far: " + Counted(survey_->Removed(), "unfinished file")),
        "");
}

void CopyNotes::ShowUnfinished(const QString& words, const QString& link) {
    const bool shown = !words.isEmpty();
    if (shown) unfinished_->Warn(words, link);
    if (unfinished_->isHidden() != shown) return;
    unfinished_->setVisible(shown);
    emit UnfinishedShown(shown);
}

void CopyNotes::AskAndRemove() {
    if (survey_ == nullptr) return;
    const QPointer<CopyNotes> self(this);
    const std::string folder = folder_;
    const bool agrees = AgreesToRemove(survey_->Unfinished(), folder);
    // The form may have been destroyed while the box was open.
    if (self == nullptr || !agrees || folder != folder_) return;
    claim_ = platform::System().files.ClaimFolder(target_folder_);
    if (claim_ == nullptr) return LookLater();
    survey_ = std::make_unique<bas_Output::CopySurvey>(folder_, Placeholders::Remove);
    removing_ = true;
    emit Removing(true);
    ShowRemoved();
    timer_.start(0);
}

}  // namespace ui
