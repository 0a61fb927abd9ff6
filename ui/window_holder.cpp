#include "ui/window_holder.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>

#include "crawl/crawl_state.h"
#include "engine/main_window.h"
#include "platform/qt/qt_event_loop.h"
#include "ui/frm_main.h"

namespace ui {

namespace {
constexpr int kLookAgainMilliseconds = 10;

/// The time that a desktop needs to remove a box and repaint what was below it.
constexpr int kCatchUpMilliseconds = 60;

/// Closes each dialog as if by its frame, so that it stores its changes.
void CloseDialogs() {
    while (QWidget* const dialog = QApplication::activeModalWidget()) {
        if (!dialog->close()) return;
    }
}
}  // namespace

WindowHolder::WindowHolder(const platform::QtEventLoop& events, Hooks hooks)
    : events_(events), hooks_(std::move(hooks)) {
    waiting_.setInterval(kLookAgainMilliseconds);
    connect(&waiting_, &QTimer::timeout, this, &WindowHolder::OnIdleStack);
}

WindowHolder::~WindowHolder() {
    engine::SetWindow(nullptr);
}

void WindowHolder::Load() {
    current_ = std::make_unique<frmMain>(*this);
    engine::SetWindow(current_.get());
    current_->Form_Load();
}

void WindowHolder::Show() {
    current_->PlaceOnScreen();
    current_->show();
    Activated();
}

void WindowHolder::Reload() {
    current_->Retire();
    const bool visible = current_->isVisible();
    const QByteArray place = current_->saveGeometry();
    unloaded_.push_back(std::move(current_));
    waiting_.start();

    Load();
    Activated();
    if (!visible) return;
    current_->restoreGeometry(place);
    current_->show();
    unloaded_.back()->hide();
}

bool WindowHolder::StackIsIdle() const {
    return events_.Depth() == 0 && QApplication::activeModalWidget() == nullptr &&
           QThread::currentThread()->loopLevel() <= 1;
}

void WindowHolder::OnIdleStack() {
    if (activated_) HandleActivation();
    if (!StackIsIdle()) return;
    unloaded_.clear();
    if (!activated_) waiting_.stop();
}

void WindowHolder::Activated() {
    activated_ = true;
    waiting_.start();
}

void WindowHolder::HandleActivation() {
    if (!wizard_open_) {
        if (!StackIsIdle()) return;
        activated_ = false;
        if (current_->ShowWizardOnActivate) OpenWizard();
    }
    activated_ = false;
    ClearActivationFlags();
}

void WindowHolder::ClearActivationFlags() {
    if (!current_->ShowWizardOnActivate) return;
    current_->ShowWizardOnActivate = false;
    crawl::Stopping = false;
}

void WindowHolder::OpenWizard() {
    if (wizard_open_ || !hooks_.show_wizard) return;
    wizard_open_ = true;
    hooks_.show_wizard(*current_);
    wizard_open_ = false;
}

void WindowHolder::Exit(int exit_code) {
    if (catching_up_ || current_->IsRetired()) return;
    CloseDialogs();
    current_->Leave(exit_code);
}

void WindowHolder::LetScreenCatchUp() {
    catching_up_ = true;
    QEventLoop painting;
    QTimer::singleShot(kCatchUpMilliseconds, &painting, &QEventLoop::quit);
    painting.exec(QEventLoop::ExcludeUserInputEvents);
    catching_up_ = false;
}

}  // namespace ui
