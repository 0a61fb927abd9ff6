#include "setup/forms/z_dir.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <initializer_list>
#include <utility>

#include "platform/qt/local_text.h"
#include "setup/forms/decoration.h"
#include "setup/forms/folder_list.h"
#include "setup/settings.h"
#include "text/text.h"
#include "widgets/controls.h"
#include "widgets/elided_label.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

namespace {

/// Adds every drive of the system; an item's data is the drive's lower-case letter with its colon.
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
    Form_Load();
}

void zDir::MakeControls() {
    setObjectName("zDir");
    setWindowTitle("Select Directory to Save the Website");
    setFont(LabelFont());

    drive1_ = new QComboBox(this);
    drive1_->setObjectName("Drive1");
    drive1_->setAccessibleName("Drive");
    AddDrives(*drive1_);
    dir1_ = new FolderList("Dir1", this);
    dir1_->setAccessibleName("Folders");
    dir1_->setToolTip("Double click a folder, or press Enter, to open it");
    label1_ = new ElidedLabel(this);
    label1_->setObjectName("Label1");
    label1_->setText("c:\\");
    command1_ = MakeFormButton("Command1", "&Ok...", this);
    command1_->setDefault(true);
    command2_ = MakeFormButton("Command2", "Cancel", this);
}

void zDir::PlaceControls() {
    auto* image1 = new Decoration("Image1", Decoration::Subject::Folder, this);
    image1->setFixedSize(Twips(600), Twips(600));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(command1_);
    buttons->addWidget(command2_);
    auto* grid = new QGridLayout(this);
    grid->addWidget(image1, 0, 0, 2, 1);
    grid->addWidget(drive1_, 0, 1);
    grid->addWidget(label1_, 1, 1);
    grid->addWidget(dir1_, 2, 0, 1, 2);
    grid->addLayout(buttons, 3, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    resize(Twips(5700), Twips(6000));

    SetTabOrder({drive1_, dir1_, command1_, command2_});
    dir1_->setFocus();
}

void zDir::Form_Load() {
    SetLabel1(bas_General::StoredFolder());
    for (const std::string& folder :
         {bas_General::StoredFolder(), std::string("C:\\Websites\\"), std::string("\\")}) {
        if (dir1_->SetPath(folder)) return;
    }
}

void zDir::Drive1_Change() {
    // A drive that is not ready leaves the folder list where it was, and the box goes back to it.
    if (!dir1_->SetPath(platform::ToBytes(drive1_->currentData().toString()) + "\\")) Dir1_Change();
}

void zDir::Dir1_Change() {
    SetLabel1(dir1_->Path());
    const QSignalBlocker not_chosen_by_hand(drive1_);
    const std::string drive = text::LowerCase(text::Left(dir1_->Path(), 2));
    drive1_->setCurrentIndex(drive1_->findData(platform::FromBytes(drive)));
}

void zDir::Command1_Click() {
    // A root's path has its "\" already and gets a second one.
    set_folder_(label1_caption_ + "\\");
    accept();
}

void zDir::SetLabel1(const std::string& caption) {
    label1_caption_ = caption;
    label1_->setText(platform::FromBytes(caption));
}

}  // namespace ui
