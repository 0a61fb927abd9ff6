#include <QShortcut>

#include "engine/endings.h"
#include "engine/folder_claim.h"
#include "engine/http_exchange.h"
#include "engine/scheduler.h"
#include "engine/site_start.h"
#include "engine/start_page.h"
#include "forms/address_line.h"
#include "forms/report_dialog.h"
#include "forms/search_dialog.h"
#include "forms/z_filter.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "setup/file_types.h"
#include "setup/recent_addresses.h"
#include "setup/settings.h"
#include "text/text.h"
#include "ui/frm_main.h"
#include "ui/version.h"
#include "ui/window_holder.h"
#include "widgets/twips.h"

/// What the main window's buttons, menu entries, sockets and timers do.
namespace ui {

namespace {

/// The least width of a warning and its link, in twips.
constexpr int kLeastAddressLine = 4200;

/// Whether a crawl may save into the target folder. A crawl started from the address box before a
/// wizard has chosen a folder uses the stored one.
bool FolderIsReady() {
    if (crawl::TargetFolder.empty() &&
        !bas_General::PrepareTargetFolder(
            bas_General::NormalizeFolder(bas_General::StoredFolder()))) {
        crawl::TargetFolder.clear();
        return false;
    }
    return bas_Connections::ClaimTargetFolder();
}

}  // namespace

void frmMain::ConnectHandlers() {
    ConnectControls();
    ConnectMenu();
    ConnectCrawl();
}

void frmMain::ConnectControls() {
    On(text1_, &QLineEdit::returnPressed, [this] { Start(); });
    On(text1_, &QLineEdit::textChanged, [this] { JudgeAddress(); });
    On(command1_, &QPushButton::clicked, [this] { Start(); });
    On(command2_, &QPushButton::clicked, [] { bas_Connections::AskStop(); });
    On(command3_, &QPushButton::clicked, [this] { filters_ = zFilter::ShowOver(this); });
    On(command4_, &QPushButton::clicked, [this] { ExploreTarget(); });
    On(open_copy_, &QPushButton::clicked, [this] { OpenCopy(); });
    On(&progress_->CopyButton(), &QPushButton::clicked, [this] { OpenCopy(); });
    On(search_, &QPushButton::clicked, [this] { search_dialog_ = SearchDialog::ShowOver(this); });
    On(new QShortcut(QKeySequence::Find, this), &QShortcut::activated,
       [this] { search_dialog_ = SearchDialog::ShowOver(this); });
    On(new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_O, this), &QShortcut::activated,
       [this] { OpenCopy(); });
    for (AddressList* list : {list1_, list2_}) {
        On(list, &AddressList::Activated, [list] { OpenAddress(list->Selected()); });
        connect(list, &AddressList::DoubleClicked, this, [this](const std::string& address) {
            if (!retired_) OpenAddress(address);
        });
        connect(list, &AddressList::FilterWanted, this, &frmMain::SuggestFilter);
        On(list, &AddressList::Refreshed, [this] { ListChanged(); });
    }
    connect(list2_, &AddressList::TypesWanted, this, &frmMain::AddTypes);
    On(other_links_, &QToolButton::clicked, [this] { ShowOtherLinks(list2_->isHidden()); });

    // Leaving the box does not count as a choice from its list.
    disconnect(txt_max_->lineEdit(), &QLineEdit::editingFinished, txt_max_, nullptr);
    On(txt_max_->lineEdit(), &QLineEdit::textEdited, [] { bas_Connections::txtMax_Change(); });
    On(txt_max_, &QComboBox::activated, [] { bas_Connections::txtMax_Click(); });
    On(txt_max_, &QComboBox::currentTextChanged, [this] { ShowProgress(); });
    On(&progress_->ReportButton(), &QPushButton::clicked,
       [this] { report_ = ReportDialog::ShowOver(this); });
}

void frmMain::Start() {
    if (!FolderIsReady()) return;
    if (address_line_->Warning().isEmpty()) bas_General::NoteAddress(Text1());
    bas_Connections::Text1_KeyDown(bas_Connections::kEnterKey);
}

void frmMain::ConnectMenu() {
    On(mnunew_, &QAction::triggered, [this] { mnunew_Click(); });
    On(mnupref_, &QAction::triggered, [this] { mnunew_Click(); });
    On(mnuexit_, &QAction::triggered, [this] { close(); });
    On(mnupause_, &QAction::triggered, [] { bas_Connections::mnupause_Click(); });
    On(mnuexplore_, &QAction::triggered, [this] { ExploreTarget(); });
    On(mnuabout_, &QAction::triggered, [this] { mnuabout_Click(); });
}

void frmMain::ConnectCrawl() {
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        sockets_[i]->on_connect = WhileLoaded([i] { bas_Connections::Sock_Connect(i); });
        sockets_[i]->on_data = WhileLoaded([i] { bas_Connections::Sock_DataArrival(i); });
        timeouts_[i].on_timer = WhileLoaded([i] { bas_Connections::tmrOut_Timer(i); });
    }
    move_timer_.on_timer = WhileLoaded([] { bas_Connections::tmrMove_Timer(); });
    On(&progress_timer_, &QTimer::timeout, [this] { ShowProgress(); });
    On(&rate_timer_, &QTimer::timeout, [this] { picture1_->Picture3().Sample(crawl::TotalBytes); });
}

void frmMain::mnunew_Click() {
    if (engine::CrawlIsRunning()) bas_Connections::AskStop();
    // A stop has replaced this window by another one.
    if (!engine::CrawlIsRunning()) holder_.OpenWizard();
}

void frmMain::mnuabout_Click() {
    platform::System().boxes.MsgBox(kNameAndVersion, platform::BoxStyle::Information, "About");
}

void frmMain::ExploreTarget() {
    const std::string& folder = crawl::TargetFolder;
    platform::System().processes.ExploreFolder(folder.empty() ? bas_General::StoredFolder()
                                                              : folder);
}

void frmMain::OpenCopy() {
    OfferCopy();
    if (const std::string page = bas_Connections::StartPage(); !page.empty()) {
        platform::System().processes.OpenFile(page);
    }
}

void frmMain::OpenAddress(std::string address) {
    if (address.empty()) return;
    if (text::LowerCase(text::Left(address, 7)) != "http://") {
        address = "http://" + std::string(text::Trim(address));
    }
    platform::System().processes.OpenAddress(address);
}

void frmMain::SuggestFilter(const std::string& address) {
    if (retired_) return;
    zFilter* filters = zFilter::ShowOver(this);
    filters_ = filters;
    filters->Suggest(address);
}

void frmMain::AddTypes(const std::vector<std::string>& types) {
    std::string names;
    for (const std::string& type : types)
        names += " " + type;
    platform::MessageBoxes& boxes = platform::System().boxes;
    if (bas_General::AddFileTypes(types)) {
        boxes.MsgBox("The next download will get files of this type, too:" + names,
                     platform::BoxStyle::Information, "File Types");
    } else {
        boxes.MsgBox("The list of file types cannot be written.", platform::BoxStyle::Stop,
                     "File Types");
    }
}

void frmMain::ShowOtherLinks(bool other_links) {
    list1_->setVisible(!other_links);
    label8_->setVisible(!other_links);
    next_->setVisible(!other_links);
    list2_->setVisible(other_links);
    list2_heading_->setVisible(other_links);
    ListChanged();
}

void frmMain::JudgeAddress() {
    const bool judged = text1_->isEnabled() && !text1_->text().isEmpty();
    const bool has_room = address_line_->width() >= Twips(kLeastAddressLine);
    address_line_->setVisible(judged && has_room);
    progress_->Warn(judged && !has_room ? address_line_->Warning() : QString());
}

void frmMain::ListChanged() {
    const QString count = QString::fromStdString(
        bas_Connections::FormatCount(static_cast<std::int64_t>(crawl::List2.Count())));
    list2_heading_->setText("Other Links on the Site: " + count);
    other_links_->setText(list2_->isHidden() ? QString("Show Other Links (%1)").arg(count)
                                             : QString("Show Queued Files"));
    // The queue is worked from its end.
    next_->setText(crawl::List1.Empty()
                       ? QString()
                       : "Next: " +
                             platform::FromBytes(crawl::List1.Item(crawl::List1.Count() - 1)));
    PlaceOtherLinksButton();
}

}  // namespace ui
