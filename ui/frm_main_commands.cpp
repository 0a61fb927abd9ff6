#include "engine/endings.h"
#include "engine/http_exchange.h"
#include "engine/scheduler.h"
#include "engine/site_start.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "setup/forms/z_filter.h"
#include "setup/settings.h"
#include "text/text.h"
#include "ui/frm_main.h"
#include "ui/version.h"
#include "ui/window_holder.h"

/// What the main window's buttons, menu entries, sockets and timers do.
namespace ui {

namespace {

constexpr int kEnterKey = 13;

/// A crawl from the address box, before a wizard has chosen a folder, goes into the stored one.
bool FolderIsReady() {
    if (!crawl::TargetFolder.empty()) return true;
    const std::string stored = bas_General::NormalizeFolder(bas_General::StoredFolder());
    if (bas_General::PrepareTargetFolder(stored)) return true;
    crawl::TargetFolder.clear();
    return false;
}

}  // namespace

void frmMain::ConnectHandlers() {
    connect(text1_, &QLineEdit::returnPressed, this, [this] {
        if (!retired_ && FolderIsReady()) bas_Connections::Text1_KeyDown(kEnterKey);
    });
    connect(command1_, &QPushButton::clicked, this, [this] {
        if (!retired_ && FolderIsReady()) bas_Connections::ConnectNowNow();
    });
    connect(command2_, &QPushButton::clicked, this, [this] {
        if (!retired_) bas_Connections::AskStop();
    });
    connect(command3_, &QPushButton::clicked, this, &frmMain::ShowFilters);
    connect(command4_, &QPushButton::clicked, this, &frmMain::ExploreTarget);
    connect(list1_, &AddressList::Activated, this, &frmMain::OpenSelectedAddress);
    connect(other_links_, &QToolButton::clicked, this,
            [this] { ShowOtherLinks(list2_->isHidden()); });

    // Leaving the box is no choice from its list.
    disconnect(txt_max_->lineEdit(), &QLineEdit::editingFinished, txt_max_, nullptr);
    connect(txt_max_->lineEdit(), &QLineEdit::textEdited, this, [this] {
        if (!retired_) bas_Connections::txtMax_Change();
    });
    connect(txt_max_, &QComboBox::activated, this, [this] {
        if (!retired_) bas_Connections::txtMax_Click();
    });

    connect(mnunew_, &QAction::triggered, this, &frmMain::mnunew_Click);
    connect(mnupref_, &QAction::triggered, this, &frmMain::mnunew_Click);
    connect(mnuexit_, &QAction::triggered, this, &frmMain::mnuexit_Click);
    connect(mnupause_, &QAction::triggered, this, [this] {
        if (!retired_) bas_Connections::mnupause_Click();
    });
    connect(mnuexplore_, &QAction::triggered, this, &frmMain::ExploreTarget);
    connect(mnuabout_, &QAction::triggered, this, &frmMain::mnuabout_Click);

    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        sockets_[i]->on_connect = [this, i] {
            if (!retired_) bas_Connections::Sock_Connect(i);
        };
        sockets_[i]->on_data = [this, i] {
            if (!retired_) bas_Connections::Sock_DataArrival(i);
        };
        timeouts_[i].on_timer = [this, i] {
            if (!retired_) bas_Connections::tmrOut_Timer(i);
        };
    }
    move_timer_.on_timer = [this] {
        if (!retired_) bas_Connections::tmrMove_Timer();
    };
    connect(&rate_timer_, &QTimer::timeout, this,
            [this] { picture1_->Picture3().Sample(crawl::TotalBytes); });
}

void frmMain::mnunew_Click() {
    if (retired_) return;
    if (!Command1Enabled()) bas_Connections::AskStop();
    // A stop has replaced this window by another one.
    if (engine::Window().Command1Enabled()) holder_.OpenWizard();
}

void frmMain::mnuexit_Click() {
    close();
}

void frmMain::mnuabout_Click() {
    platform::System().boxes.MsgBox(kNameAndVersion, platform::BoxStyle::Information, "About");
}

void frmMain::ExploreTarget() {
    const std::string& folder = crawl::TargetFolder;
    platform::System().processes.ExploreFolder(folder.empty() ? bas_General::StoredFolder()
                                                              : folder);
}

void frmMain::OpenSelectedAddress() {
    if (!list1_->Selected()) return;
    std::string address = crawl::List1.Item(*list1_->Selected());
    if (text::LowerCase(text::Left(address, 7)) != "http://") {
        address = "http://" + std::string(text::Trim(address));
    }
    platform::System().processes.OpenAddress(address);
}

void frmMain::ShowFilters() {
    if (!retired_) filters_ = zFilter::ShowOver(this);
}

void frmMain::ShowOtherLinks(bool other_links) {
    list1_->setVisible(!other_links);
    label8_->setVisible(!other_links);
    list2_->setVisible(other_links);
    list2_heading_->setVisible(other_links);
    other_links_->setText(other_links ? tr("Show Queued Files") : tr("Show Other Links"));
    const int right = other_links_->geometry().right();
    other_links_->adjustSize();
    other_links_->move(right + 1 - other_links_->width(), other_links_->y());
}

}  // namespace ui
