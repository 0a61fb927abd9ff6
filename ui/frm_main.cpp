#include "ui/frm_main.h"

#include <QCloseEvent>
#include <QCoreApplication>

#include "engine/endings.h"
#include "engine/main_window.h"
#include "engine/scheduler.h"
#include "output/paths.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "setup/keyword_filters.h"
#include "ui/frm_pause.h"
#include "ui/window_holder.h"

namespace ui {

namespace {
constexpr int kRateMilliseconds = 1000;
}

frmMain::frmMain(WindowHolder& holder) : holder_(holder) {
    MakeControls();
    PlaceFixedControls();
    client_->installEventFilter(this);
    ConnectHandlers();
}

frmMain::~frmMain() = default;

void frmMain::Form_Load() {
    bas_General::LoadKeywordFilters();
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        SetRowStatus(i, bas_Connections::kNotConnected);
        txt_max_->addItem(QString::number(i));
    }
    SetTxtMax("4");
    bas_Output::MakeFolder(platform::System().files.ProgramFolder() + "\\dldata");
    ShowWizardOnActivate = true;
    // The lists are this window's controls, so a new window starts with empty ones.
    crawl::List1.Clear();
    crawl::List2.Clear();
    rate_timer_.start(kRateMilliseconds);
    ShowProgress();
    text1_->setFocus();
}

void frmMain::Retire() {
    // Closing the pause dialog turns the scheduler on, so do it before that is turned off.
    if (pause_dialog_) pause_dialog_->reject();
    retired_ = true;
    move_timer_.SetEnabled(false);
    rate_timer_.stop();
    progress_timer_.stop();
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        timeouts_[i].SetEnabled(false);
        sockets_[i]->Close();
    }
    list1_->Detach();
    list2_->Detach();
    if (filters_) filters_->close();
    if (report_) report_->close();
    if (search_dialog_) search_dialog_->close();
}

bool frmMain::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && !retired_) {
        OfferCopy();
        holder_.Activated();
    }
    return QMainWindow::event(event);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == client_ && event->type() == QEvent::Resize) Form_Resize();
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (retired_ || asking_exit_) return;
    asking_exit_ = true;
    const bool leaves = bas_Connections::Form_Unload();
    asking_exit_ = false;
    if (!leaves || retired_) return;
    Retire();
    event->accept();
    QCoreApplication::exit();
}

void frmMain::Leave(int exit_code) {
    bas_Connections::CleanUpForExit();
    Retire();
    hide();
    QCoreApplication::exit(exit_code);
}

std::string frmMain::Text1() const {
    return platform::ToBytes(text1_->text());
}

void frmMain::SetText1(const std::string& address) {
    text1_->setText(platform::FromBytes(address));
}

void frmMain::SetText1Enabled(bool enabled) {
    text1_->setEnabled(enabled);
    JudgeAddress();
}

void frmMain::FocusText1() {
    text1_->setFocus();
}

void frmMain::SetCommand1Enabled(bool enabled) {
    if (!enabled) LeaveStart();
    command1_->setEnabled(enabled);
    enabled ? CrawlEnds() : CrawlBegins();
}

void frmMain::LeaveStart() {
    // Otherwise Qt would move the focus to the stop button, where two more keys end the crawl.
    if (focusWidget() == text1_ || focusWidget() == command1_ ||
        focusWidget() == &progress_->CopyButton()) {
        (list1_->isHidden() ? list2_ : list1_)->setFocus();
    }
}

void frmMain::SetCommand2Enabled(bool enabled) {
    command2_->setEnabled(enabled);
}

std::string frmMain::TxtMax() const {
    return platform::ToBytes(txt_max_->currentText());
}

void frmMain::SetTxtMax(const std::string& count) {
    const QString shown = platform::FromBytes(count);
    if (txt_max_->currentText() == shown) return;
    txt_max_->setCurrentIndex(txt_max_->findText(shown));
    txt_max_->setEditText(shown);
    // The next key replaces a number that the user did not type.
    if (txt_max_->hasFocus()) txt_max_->lineEdit()->selectAll();
    bas_Connections::txtMax_Change();
}

void frmMain::ChooseConnections(int count) {
    txt_max_->setCurrentIndex(txt_max_->findText(QString::number(count)));
    bas_Connections::txtMax_Click();
}

void frmMain::SetPauseEnabled(bool enabled) {
    mnupause_->setEnabled(enabled);
}

void frmMain::SetLabel3(const std::string& files_downloaded) {
    label3_->setText(platform::FromBytes(files_downloaded));
}

void frmMain::SetLabel4(const std::string& bytes_downloaded) {
    label4_->setText(platform::FromBytes(bytes_downloaded));
}

void frmMain::SetLabel5(const std::string& files_queued) {
    label5_->setText(platform::FromBytes(files_queued));
}

void frmMain::SetLabel6(const std::string& status) {
    label6_->setText(platform::FromBytes(status));
}

void frmMain::SetRowStatus(int slot, const std::string& text) {
    picture1_->SetStatus(slot, text);
}

void frmMain::SetRowSize(int slot, const std::string& text) {
    picture1_->SetSize(slot, text);
}

void frmMain::SetRowReceived(int slot, const std::string& text) {
    picture1_->SetReceived(slot, text);
}

void frmMain::ShowList1() {
    ShowOtherLinks(false);
}

void frmMain::ShowCleaningUp() {
    // Without a crawl there is almost nothing to delete.
    if (!engine::CrawlIsRunning() || !isVisible()) return;
    progress_->SetWords("Cleaning up...");
    holder_.LetScreenCatchUp();
}

bool frmMain::CatchingUp() const {
    return holder_.IsCatchingUp();
}

void frmMain::ShowPauseDialog() {
    frmPause dialog(this);
    pause_dialog_ = &dialog;
    paused_ = true;
    ShowProgress();
    dialog.exec();
    paused_ = false;
    ShowProgress();
}

void frmMain::Reload() {
    holder_.Reload();
}

}  // namespace ui
