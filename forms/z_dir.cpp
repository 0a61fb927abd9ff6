#include "forms/z_dir.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <initializer_list>
#include <utility>

#include "forms/decoration.h"
#include "forms/folder_list.h"
#include "forms/system_folder.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "setup/settings.h"
#include "text/text.h"
#include "widgets/choice_box.h"
#include "widgets/controls.h"
#include "widgets/elided_label.h"
#include "widgets/label_font.h"
#include "widgets/pixel_grid_item.h"
#include "widgets/twips.h"

namespace ui {

namespace {

/// Adds every drive of the system. An item's data is the drive's lower-case letter and colon.
void AddDrives(QComboBox& drives) {
#ifdef _WIN32
    for (const QFileInfo& root : QDir::drives()) {
        const QString drive = root.path().left(2).toLower();
        drives.addItem(drive, drive);
    }
#else
    drives.addItem("c: [home folder]", "c:");
    drives.addItem("z: [whole file system]", "z:");
#endif
}

}  // namespace

zDir::zDir(QWidget* parent, SetFolder set_folder)
    : QDialog(parent), set_folder_(std::move(set_folder)) {
    MakeControls();
    PlaceControls();
    connect(drive1_, &QComboBox::currentIndexChanged, this, &zDir::Drive1_Change);
    connect(dir1_, &FolderList::PathChanged, this, &zDir::Dir1_Change);
    connect(command1_, &QPushButton::clicked, this, &zDir::Command1_Click);
    connect(command2_, &QPushButton::clicked, this, &QDialog::reject);
    connect(new_folder_, &QPushButton::clicked, this, &zDir::MakeNewFolder);
    Form_Load();
}

void zDir::MakeControls() {
    setObjectName("zDir");
    setWindowTitle("Select Directory to Save the Website");
    setFont(LabelFont());

    drive1_ = new ChoiceBox("Drive1", "Drive", this);
    AddDrives(*drive1_);
    dir1_ = new FolderList("Dir1", this);
    dir1_->setAccessibleName("Folders");
    dir1_->setToolTip("Double-click a folder or press Enter to open it");
    label1_ = new ElidedLabel("Label1", "c:\\", this);
    system_folder_ = new ElidedLabel("SystemFolder", "", this);
    system_folder_->setFont(SmallLabelFont());
    system_folder_->SetQuiet(true);
    new_folder_ = MakeFormButton("NewFolder", "&New Folder...", this);
    new_folder_->setToolTip("Creates a folder in the open one, and opens it");
    command1_ = MakeFormButton("Command1", "&Ok...", this);
    command1_->setDefault(true);
    command2_ = MakeFormButton("Command2", "Cancel", this);
}

void zDir::PlaceControls() {
    auto* image1 = new Decoration("Image1", Decoration::Subject::Folder, this);
    image1->setFixedSize(Twips(600), Twips(600));
    // Ok takes the open folder, not one that is only selected.
    auto* chosen = new QHBoxLayout;
    chosen->addWidget(MakeLabel("SaveIn", "Save in:", this));
    chosen->addWidget(label1_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new_folder_);
    buttons->addStretch();
    buttons->addWidget(command1_);
    buttons->addWidget(command2_);

    auto* grid = new QGridLayout(this);
    grid->addWidget(image1, 0, 0);
    grid->addWidget(drive1_, 0, 1);
    grid->addItem(new PixelGridItem(dir1_), 1, 0, 1, 2);
    grid->addLayout(chosen, 2, 0, 1, 2);
#ifndef _WIN32
    grid->addWidget(system_folder_, 3, 0, 1, 2);
#endif
    grid->addLayout(buttons, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    resize(Twips(6300), Twips(6300));

    SetTabOrder({drive1_, dir1_, new_folder_, command1_, command2_});
    dir1_->setFocus();
}

void zDir::Form_Load() {
    SetLabel1(bas_General::StoredFolder());
    for (const std::string& folder :
         {bas_General::StoredFolder(), std::string(bas_General::kDefaultFolder),
          std::string("\\")}) {
        if (dir1_->SetPath(folder)) return;
    }
}

void zDir::Drive1_Change() {
    // If the drive is not ready, the folder list stays where it was, and the box goes back to the
    // drive of the list.
    if (!dir1_->SetPath(platform::ToBytes(drive1_->currentData().toString()) + "\\")) Dir1_Change();
}

void zDir::Dir1_Change() {
    SetLabel1(dir1_->Path());
    const QSignalBlocker not_chosen_by_hand(drive1_);
    const std::string drive = text::LowerCase(text::Left(dir1_->Path(), 2));
    drive1_->setCurrentIndex(drive1_->findData(platform::FromBytes(drive)));
}

void zDir::Command1_Click() {
    // A root's path already ends with "\" and gets a second one.
    set_folder_(label1_caption_ + "\\");
    accept();
}

void zDir::MakeNewFolder() {
    platform::MessageBoxes& boxes = platform::System().boxes;
    const QPointer<zDir> self(this);
    const std::string open = dir1_->Path();
    const std::string name(text::Trim(boxes.InputBox("Name of the new folder", "New Folder")));
    if (self == nullptr || name.empty()) return;  // the dialog may have been destroyed
    const std::string folder = open + (open.ends_with('\\') ? "" : "\\") + name;
    if (name.find_first_of("/\\") == std::string::npos &&
        platform::System().files.CreateFolder(folder)) {
        dir1_->SetPath(folder);
        command1_->setFocus();  // a new folder is most likely to be chosen
    } else {
        boxes.MsgBox("A folder with this name cannot be created here.",
                     platform::BoxStyle::Information, "New Folder");
    }
}

void zDir::SetLabel1(const std::string& caption) {
    label1_caption_ = caption;
    label1_->setText(platform::FromBytes(caption));
    system_folder_->setText(SystemFolderHint(caption));
}

}  // namespace ui
