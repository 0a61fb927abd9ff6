#include "forms/frm_new.h"

#include <QEvent>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <cstdint>
#include <optional>

#include "crawl/crawl_state.h"
#include "engine/folder_claim.h"
#include "engine/main_window.h"
#include "engine/site_start.h"
#include "forms/address_line.h"
#include "forms/byte_list.h"
#include "forms/copy_notes.h"
#include "forms/system_folder.h"
#include "forms/z_dir.h"
#include "forms/z_filter.h"
#include "platform/qt/local_text.h"
#include "setup/recent_addresses.h"
#include "setup/settings.h"
#include "text/numbers.h"
#include "text/text.h"
#include "widgets/choice_box.h"
#include "widgets/elided_label.h"
#include "widgets/twips.h"

namespace ui {

namespace {

int CollapsedWidth() {
    return Twips(6855);
}

int ExpandedWidth() {
    return Twips(9720);
}

/// Half of the difference in width, so that the form grows around its centre.
int SideStep() {
    return (Twips(2865) + 1) / 2;
}

}  // namespace

frmNew::frmNew(QWidget* parent) : QDialog(parent) {
    MakeControls();
    ConnectHandlers();
    Form_Load();
}

void frmNew::done(int result) {
    if (!unloaded_) {
        unloaded_ = true;
        Form_Unload();
    }
    QDialog::done(result);
}

bool frmNew::event(QEvent* event) {
    // The user may come from another copy of the program that has changed the list.
    if (event->type() == QEvent::WindowActivate && !unloaded_) TakeOthersTypes();
    return QDialog::event(event);
}

void frmNew::ConnectHandlers() {
    connect(txt_url_, &QLineEdit::textChanged, this, &frmNew::txtURL_Change);
    connect(txt_dir_, &QLineEdit::textChanged, this, &frmNew::txtDir_Change);
    connect(copy_notes_, &CopyNotes::Removing, command1_, &QPushButton::setDisabled);
    connect(copy_notes_, &CopyNotes::UnfinishedShown, this, &frmNew::MakeRoomForNote);
    connect(command1_, &QPushButton::clicked, this, &frmNew::Command1_Click);
    connect(command2_, &QPushButton::clicked, this, &frmNew::Command2_Click);
    connect(command3_, &QPushButton::clicked, this, &frmNew::Command3_Click);
    connect(command4_, &QPushButton::clicked, this, &frmNew::Command4_Click);
    connect(command5_, &QPushButton::clicked, this, &frmNew::Command5_Click);
    connect(command6_, &QPushButton::clicked, this, &frmNew::Command6_Click);
    connect(command7_, &QPushButton::clicked, this, &frmNew::Command7_Click);
    connect(command8_, &QPushButton::clicked, this, &frmNew::Command8_Click);
    connect(list1_, &ByteList::DeletePressed, this, &frmNew::Command4_Click);
}

void frmNew::Form_Load() {
    LoadFileTypesList();
    {
        const QSignalBlocker no_echo(txt_url_);
        txt_url_->setText(platform::FromBytes(bas_General::ReadSetting("LastURL", "http://")));
    }
    txtURL_Change();
    address_line_->Judge();
    SetTxtDir(bas_General::StoredFolder());
    list2_->addItems({"5", "10", "20", "30", "45"});
    list2_->setEditText(platform::FromBytes(bas_General::ReadSetting("Timeout", "15")));
    setFixedWidth(CollapsedWidth());
    frame1_->hide();
}

void frmNew::Form_Unload() {
    // A filters dialog opened from this wizard cannot outlive it.
    for (zFilter* filters : findChildren<zFilter*>(Qt::FindDirectChildrenOnly))
        filters->close();

    const std::string seconds(text::Trim(platform::ToBytes(list2_->currentText())));
    bas_General::PutSetting("Timeout", seconds);
    if (!seconds.empty()) ApplyTimeout(seconds);
}

void frmNew::ApplyTimeout(const std::string& seconds) {
    const std::optional<std::int32_t> milliseconds =
        text::RoundHalfEven(text::LeadingNumber(seconds) * 1000);
    if (!milliseconds) return;
    for (int slot = 1; slot <= crawl::kSlotCount; ++slot) {
        if (!engine::Window().tmrOut(slot).SetInterval(*milliseconds)) return;
    }
}

void frmNew::txtURL_Change() {
    bas_General::PutSetting("LastURL", platform::ToBytes(txt_url_->text()));
    LookForCopy();
}

void frmNew::txtDir_Change() {
    bas_General::PutSetting("InDir", TxtDir());
    ShowSystemFolder();
    LookForCopy();
}

std::string frmNew::TxtDir() const {
    return platform::ToBytes(txt_dir_->text());
}

void frmNew::SetTxtDir(const std::string& folder) {
    {
        // Qt does not signal an unchanged text, but the handler must run for every write.
        const QSignalBlocker no_echo(txt_dir_);
        txt_dir_->setText(platform::FromBytes(folder));
    }
    txtDir_Change();
}

void frmNew::ShowSystemFolder() {
    system_folder_->setText(SystemFolderHint(TxtDir()));
    txt_dir_->setAccessibleDescription(system_folder_->text());
}

void frmNew::LookForCopy() {
    copy_notes_->LookFor(platform::ToBytes(txt_url_->text()),
                         bas_General::NormalizeFolder(TxtDir()));
}

bool frmNew::SetToInDIR() {
    SetTxtDir(bas_General::NormalizeFolder(TxtDir()));
    return bas_General::PrepareTargetFolder(TxtDir());
}

void frmNew::Command1_Click() {
    if (!SetToInDIR() || !bas_Connections::ClaimTargetFolder()) return;
    SaveFileTypes();
    copy_notes_->Stop();
    const std::string address = platform::ToBytes(txt_url_->text());
    if (address_line_->Warning().isEmpty()) bas_General::NoteAddress(address);
    engine::Window().SetText1(address);
    bas_Connections::ConnectNowNow();
    accept();
}

void frmNew::Command2_Click() {
    if (!SetToInDIR()) return;
    SaveFileTypes();
    accept();
}

void frmNew::Command6_Click() {
    const bool expand = width() == CollapsedWidth();
    setFixedWidth(expand ? ExpandedWidth() : CollapsedWidth());
    move(x() + (expand ? -SideStep() : SideStep()), y());
    command6_->setText(expand ? "Options <<" : "Options >>");
    // When hidden, it must also leave the tab order.
    frame1_->setVisible(expand);
}

void frmNew::Command7_Click() {
    auto* chooser = new zDir(this, [this](const std::string& folder) { SetTxtDir(folder); });
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setModal(true);
    chooser->show();
}

void frmNew::Command8_Click() {
    zFilter::ShowOver(this);
}

}  // namespace ui
