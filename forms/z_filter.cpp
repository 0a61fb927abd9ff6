#include "forms/z_filter.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

#include "forms/byte_list.h"
#include "forms/decoration.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "setup/keyword_filters.h"
#include "text/text.h"
#include "widgets/controls.h"
#include "widgets/label_font.h"
#include "widgets/pixel_grid_item.h"
#include "widgets/twips.h"

namespace ui {

namespace {
QPointer<zFilter> g_open_dialog;
}

zFilter::zFilter(QWidget* parent) : QDialog(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    MakeControls();
    MakeTexts();
    PlaceControls();
    connect(command1_, &QPushButton::clicked, this, &zFilter::Command1_Click);
    connect(command2_, &QPushButton::clicked, this, &zFilter::Command2_Click);
    connect(command3_, &QPushButton::clicked, this, &zFilter::Command3_Click);
    connect(command4_, &QPushButton::clicked, this, &QDialog::close);
    connect(list1_, &ByteList::DeletePressed, this, &zFilter::Command2_Click);
    Form_Load();
}

zFilter::~zFilter() {
    // If the parent is destroyed while the dialog is open, keep the changes, too.
    Form_Unload();
}

zFilter* zFilter::ShowOver(QWidget* parent) {
    if (g_open_dialog == nullptr || g_open_dialog->unloaded_) {
        g_open_dialog = new zFilter(parent);
    } else if (g_open_dialog->parentWidget() != parent) {
        const QPoint place = g_open_dialog->pos();
        g_open_dialog->setParent(parent, g_open_dialog->windowFlags());
        g_open_dialog->move(place);
    }
    g_open_dialog->show();
    g_open_dialog->raise();
    g_open_dialog->activateWindow();
    return g_open_dialog;
}

void zFilter::MakeControls() {
    setObjectName("zFilter");
    setWindowTitle("Keyword Filters");
    setFont(LabelFont());
    text1_ = new QLineEdit(this);
    text1_->setObjectName("Text1");
    text1_->setAccessibleName("Add Keyword");
    list1_ = new ByteList("List1", this);
    list1_->setAccessibleName("Keyword Filters");
    command1_ = MakeFormButton("Command1", "Add", this);
    command1_->setDefault(true);
    command2_ = MakeFormButton("Command2", "Remove", this);
    command3_ = MakeFormButton("Command3", "Clear All", this);
    command4_ = MakeFormButton("Command4", "Close", this);
}

void zFilter::MakeTexts() {
    label2_ = MakeLabel("Label2", "Keyword Filters", this);
    QFont heading = font();
    heading.setBold(true);
    heading.setPixelSize(heading.pixelSize() * 4 / 3);
    label2_->setFont(heading);
    label1_ = MakeParagraph(
        "Label1",
        "Whenever a URL is added to the list to be downloaded, it will be compared with the "
        "keywords in this list. If any of the keyword text exists anywhere in the URL, it will be "
        "removed from the download list.",
        this);
    label3_ = MakeLabel("Label3", "Add Keyword", this);
    label4_ = MakeParagraph("Label4",
                            "Note: Use longer filter keywords where possible to avoid "
                            "filtering out wanted files.",
                            this);
}

void zFilter::PlaceControls() {
    auto* image1 = new Decoration("Image1", Decoration::Subject::Funnel, this);
    image1->setFixedSize(Twips(600), Twips(600));

    auto* list_buttons = new QVBoxLayout;
    list_buttons->addWidget(command2_);
    list_buttons->addWidget(command3_);
    list_buttons->addStretch();
    list_buttons->addWidget(command4_);

    auto* grid = new QGridLayout(this);
    grid->addWidget(image1, 0, 0);
    grid->addWidget(label2_, 0, 1, 1, 2);
    grid->addWidget(label1_, 1, 0, 1, 3);
    grid->addWidget(label3_, 2, 0, 1, 3);
    grid->addWidget(text1_, 3, 0, 1, 2);
    grid->addWidget(command1_, 3, 2);
    grid->addItem(new PixelGridItem(list1_), 4, 0, 1, 2);
    grid->addLayout(list_buttons, 4, 2);
    grid->addWidget(label4_, 5, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(4, 1);
    resize(Twips(6000), Twips(6600));

    SetTabOrder({text1_, command1_, list1_, command2_, command3_, command4_});
    text1_->setFocus();
}

void zFilter::Form_Load() {
    for (const std::string& keyword : bas_General::KeywordFilters) {
        if (!text::Trim(keyword).empty()) list1_->AddItem(keyword);
    }
    TakeOthersKeywords();
}

void zFilter::TakeOthersKeywords() {
    if (const auto merged = bas_General::WithOthersKeywords(list1_->Items())) {
        list1_->SetItems(*merged);
    }
}

bool zFilter::event(QEvent* event) {
    // The user may come from another copy of the program that has changed the list.
    if (event->type() == QEvent::WindowActivate && !unloaded_) TakeOthersKeywords();
    return QDialog::event(event);
}

void zFilter::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    bas_General::StoreKeywordFilters(list1_->Items());
}

void zFilter::Suggest(const std::string& keyword) {
    text1_->setText(platform::FromBytes(keyword));
    text1_->setFocus();
    text1_->selectAll();
}

void zFilter::done(int result) {
    Form_Unload();
    QDialog::done(result);
}

void zFilter::Command1_Click() {
    const QPointer<zFilter> self(this);
    const std::string keyword(text::Trim(platform::ToBytes(text1_->text())));
    if (!keyword.empty()) {
        if (bas_General::FilterExists(keyword, list1_->Items())) {
            platform::System().boxes.MsgBox("Filter already exists in the list!",
                                            platform::BoxStyle::Information, "Filter");
            if (self == nullptr) return;  // the dialog may have been destroyed
        } else {
            list1_->AddItem(text::UpperCase(keyword));
            list1_->scrollToBottom();
        }
    }
    text1_->clear();
    text1_->setFocus();
}

void zFilter::Command2_Click() {
    const std::optional<int> index = list1_->SelectedIndex();
    if (!index) return;
    list1_->RemoveItem(*index);
    if (*index < list1_->count()) list1_->setCurrentRow(*index);
}

void zFilter::Command3_Click() {
    const QPointer<zFilter> self(this);
    const auto answer =
        platform::System().boxes.MsgBox("Are you sure you want to remove all the filters?",
                                        platform::BoxStyle::StopYesNo, "Clear Filters");
    if (self != nullptr && answer == platform::BoxAnswer::Yes) list1_->clear();
}

}  // namespace ui
