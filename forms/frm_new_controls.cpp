#include <QFrame>
#include <QGridLayout>
#include <QLabel>

#include "forms/address_completer.h"
#include "forms/address_line.h"
#include "forms/byte_list.h"
#include "forms/copy_notes.h"
#include "forms/decoration.h"
#include "forms/frm_new.h"
#include "forms/wrapping_button.h"
#include "widgets/address_box.h"
#include "widgets/choice_box.h"
#include "widgets/controls.h"
#include "widgets/elided_label.h"
#include "widgets/icons.h"
#include "widgets/label_font.h"
#include "widgets/link_drop.h"
#include "widgets/note_line.h"
#include "widgets/pixel_grid_item.h"
#include "widgets/twips.h"

namespace ui {

namespace {

constexpr int kFormHeight = 4800;
constexpr int kNoteHeight = 255;

/// From the web into a folder: a picture of what the program does.
void AddPictures(QWidget* form) {
    PlaceTwips(new Decoration("Image1", Decoration::Subject::Globe, form), 600, 240, 840, 840);
    PlaceTwips(new Decoration("Image2", Decoration::Subject::Arrow, form), 1620, 420, 480, 480);
    PlaceTwips(new Decoration("Image3", Decoration::Subject::Folder, form), 2280, 240, 840, 840);
}

}  // namespace

void frmNew::MakeControls() {
    setObjectName("frmNew");
    setWindowTitle("New Site Wizard");
    setFont(LabelFont());
    MakeRoomForNote(false);
    AddPictures(this);
    MakeMainArea();
    MakeOptionsArea();
    new AddressCompleter(txt_url_);
    new LinkDrop(this, txt_url_);
    SetTabOrder({txt_url_, address_line_->Link(), txt_dir_, command7_,
                 copy_notes_->Unfinished()->Link(), command1_, command6_, list1_, command3_,
                 command4_, command5_, list2_, command8_, command2_});
    txt_url_->setFocus();
}

void frmNew::MakeMainArea() {
    MakeAddressBoxes();
    MakeButtons();
    QLabel* label8 = MakeParagraph("Label8",
                                   "If you have previously downloaded this website, make sure the "
                                   "directory is different to last time, or the website may not be "
                                   "downloaded correctly.",
                                   this);
    label8->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    PlaceTwips(label8, 600, 3570, 4050, 1005);
    MakeCopyNotes();
}

void frmNew::MakeCopyNotes() {
    copy_notes_ = new CopyNotes(this);
    copy_notes_->Copy()->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    PlaceTwips(copy_notes_->Copy(), 600, 3105, 5775, 450);
    PlaceTwips(copy_notes_->Unfinished(), 240, kFormHeight - 90, 6375, kNoteHeight);
}

void frmNew::MakeRoomForNote(bool shown) {
    setFixedHeight(Twips(kFormHeight + (shown ? kNoteHeight : 0)));
}

void frmNew::MakeAddressBoxes() {
    txt_url_ = new AddressBox("txtURL", this);
    txt_url_->setText("http://");
    txt_dir_ = new AddressBox("txtDir", this);
    txt_dir_->setText("C:\\websites\\");
    address_line_ = new AddressLine("AddressHint", txt_url_, this);
    system_folder_ = new ElidedLabel("SystemFolder", "", this);
    system_folder_->setFont(SmallLabelFont());
    system_folder_->SetQuiet(true);
    QLabel* label1 = MakeLabel("Label1", "Website to Download", this);
    label1->setBuddy(txt_url_);
    QLabel* label4 = MakeLabel("Label4", "Save to this Directory", this);
    label4->setBuddy(txt_dir_);

    PlaceTwips(label1, 600, 1380, 4500, 270);
    PlaceTwips(txt_url_, 600, 1680, 5775, 345);
    PlaceTwips(address_line_, 600, 2025, 5775, 225);
    PlaceTwips(label4, 600, 2265, 4500, 240);
    PlaceTwips(txt_dir_, 1200, 2520, 5175, 345);
    PlaceTwips(system_folder_, 1200, 2865, 5175, 225);
}

void frmNew::MakeButtons() {
    command1_ = new WrappingButton("Command1", "Download Website Now!", this);
    command1_->setDefault(true);
    command2_ = MakeFormButton("Command2", "Close", this);
    command6_ = MakeFormButton("Command6", "Options >>", this);
    command7_ = MakeIconButton("Command7", Picture::Explore, "Browse for the directory", this);
    command8_ = MakeFormButton("Command8", "Filters", this);

    PlaceTwips(command1_, 4800, 3600, 1695, 975);
    PlaceTwips(command2_, 5160, 120, 1455, 375);
    PlaceTwips(command6_, 5160, 600, 1455, 375);
    PlaceTwips(command7_, 600, 2520, 495, 375);
    PlaceTwips(command8_, 5160, 1080, 1455, 375);
}

void frmNew::MakeOptionsArea() {
    frame1_ = new QFrame(this);
    frame1_->setObjectName("Frame1");
    frame1_->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(frame1_, 6840, 120, 2655, 4455);

    list1_ = new ByteList("List1", frame1_);
    list1_->setAccessibleName("Get These File Types");
    command3_ = MakeFormButton("Command3", "Add", frame1_);
    command4_ = MakeFormButton("Command4", "Delete", frame1_);
    command5_ = MakeFormButton("Command5", "Set Default", frame1_);
    list2_ = new ChoiceBox("List2", "Timeout in seconds", frame1_);
    list2_->MakeEditable();
    QLabel* label3 = MakeLabel("Label3", "Get These File Types", frame1_);
    label3->setBuddy(list1_);
    QLabel* label5 = MakeLabel("Label5", "Timeout", frame1_);
    label5->setBuddy(list2_);
    QLabel* label6 = MakeLabel("Label6", "Seconds", frame1_);

    auto* grid = new QGridLayout(frame1_);
    grid->setContentsMargins(Twips(90), Twips(90), Twips(90), Twips(90));
    grid->setSpacing(Twips(90));
    grid->addWidget(label3, 0, 0, 1, 2);
    grid->addItem(new PixelGridItem(list1_), 1, 0, 1, 2);
    grid->addWidget(command3_, 2, 0);
    grid->addWidget(command4_, 2, 1);
    grid->addWidget(command5_, 3, 0, 1, 2);
    // Two columns, with the caption above, leave room for texts like "12 sec".
    grid->addWidget(label5, 4, 0, 1, 2);
    grid->addWidget(list2_, 5, 0);
    grid->addWidget(label6, 5, 1);
}

}  // namespace ui
