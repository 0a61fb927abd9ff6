#include "forms/search_dialog.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "forms/counts.h"
#include "forms/page_opener.h"
#include "forms/search_list.h"
#include "forms/search_model.h"
#include "forms/show_over.h"
#include "forms/system_folder.h"
#include "forms/z_dir.h"
#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "setup/settings.h"
#include "widgets/address_box.h"
#include "widgets/controls.h"
#include "widgets/elided_label.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

namespace {

/// Whether a key moves through the list even while the box has the focus.
bool MovesInList(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

}  // namespace

SearchDialog::SearchDialog(QWidget* parent) : QDialog(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle("Search the Copy");
    setFont(LabelFont());
    MakeControls();
    MakeButtons();
    PlaceControls();
    folder_->setText(platform::FromBytes(bas_General::StoredFolder()));
    ConnectHandlers();
    SearchAgain();
}

SearchDialog* SearchDialog::ShowOver(QWidget* parent) {
    SearchDialog* const dialog = ShowOnlyOneOver<SearchDialog>(parent);
    dialog->GoToWords();
    return dialog;
}

void SearchDialog::MakeControls() {
    model_ = new SearchModel(this);
    opener_ = new PageOpener(this);
    words_ = MakeSearchBox("Words", "Words, or \"an exact phrase\"", this);
    words_->installEventFilter(this);
    folder_ = new AddressBox("Folder", this);
    choose_ = MakeIconButton("Choose", Picture::Explore, "Browse for the folder", this);
    choose_->setAutoDefault(false);
    system_folder_ = new ElidedLabel("SystemFolder", "", this);
    system_folder_->setFont(SmallLabelFont());
    system_folder_->SetQuiet(true);
    pages_ = new SearchList(model_, this);
    outcome_ = new ElidedLabel("Outcome", "", this);
}

void SearchDialog::MakeButtons() {
    open_ = MakeFormButton("Open", "&Open", this);
    open_->setDefault(true);
    open_->setToolTip("Opens the chosen page in the browser (Enter)");
    again_ = MakeFormButton("Again", "Search &Again", this);
    again_->setShortcut(Qt::Key_F5);
    again_->setToolTip("Searches again, including the pages saved meanwhile (F5)");
    close_ = MakeFormButton("Close", "Close", this);
}

void SearchDialog::PlaceControls() {
    QLabel* const words_label = MakeLabel("WordsLabel", "&Look for", this);
    words_label->setBuddy(words_);
    QLabel* const folder_label = MakeLabel("FolderLabel", "Copy &in", this);
    folder_label->setBuddy(folder_);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(open_);
    buttons->addWidget(again_);
    buttons->addStretch();
    buttons->addWidget(close_);

    auto* grid = new QGridLayout(this);
    grid->addWidget(words_label, 0, 0);
    grid->addWidget(words_, 0, 1, 1, 2);
    grid->addWidget(folder_label, 1, 0);
    grid->addWidget(folder_, 1, 1);
    grid->addWidget(choose_, 1, 2);
    grid->addWidget(system_folder_, 2, 1, 1, 2);
    grid->addWidget(pages_, 3, 0, 1, 3);
    grid->addWidget(outcome_, 4, 0, 1, 3);
    grid->addLayout(buttons, 5, 0, 1, 3);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(1, 1);
    resize(Twips(11400), Twips(8400));
    SetTabOrder({words_, folder_, choose_, pages_, open_, again_, close_});
}

void SearchDialog::GoToWords() {
    words_->setFocus();
    words_->selectAll();
}

void SearchDialog::ConnectHandlers() {
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this,
            &SearchDialog::GoToWords);
    connect(words_, &QLineEdit::textChanged, this, &SearchDialog::SearchAgain);
    connect(folder_, &QLineEdit::textChanged, this, &SearchDialog::SearchAgain);
    connect(choose_, &QPushButton::clicked, this, &SearchDialog::ChooseFolder);
    connect(model_, &SearchModel::Refreshed, this, &SearchDialog::ShowOutcome);
    connect(pages_, &QListView::doubleClicked, this, &SearchDialog::OpenPage);
    connect(open_, &QPushButton::clicked, this, &SearchDialog::OpenPage);
    connect(again_, &QPushButton::clicked, this, &SearchDialog::SearchAgain);
    connect(close_, &QPushButton::clicked, this, &QDialog::close);
    connect(opener_, &PageOpener::NotThere, this,
            [this] { outcome_->setText("This page is no longer in the folder"); });
    connect(opener_, &PageOpener::NotStarted, this,
            [this] { outcome_->setText("No program could be started to open the page"); });
}

bool SearchDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == words_ && event->type() == QEvent::KeyPress &&
        MovesInList(static_cast<QKeyEvent*>(event)->key())) {
        QApplication::sendEvent(pages_, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

std::string SearchDialog::Folder() const {
    return bas_General::NormalizeFolder(platform::ToBytes(folder_->text()));
}

void SearchDialog::ChooseFolder() {
    auto* chooser = new zDir(
        this, [this](const std::string& folder) { folder_->setText(platform::FromBytes(folder)); });
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setModal(true);
    chooser->show();
}

void SearchDialog::SearchAgain() {
    system_folder_->setText(SystemFolderHint(platform::ToBytes(folder_->text())));
    model_->Begin(platform::ToBytes(words_->text()), Folder());
}

void SearchDialog::OpenPage() {
    if (pages_->Row() < 0) return;
    ShowOutcome();
    opener_->Open(Folder(), model_->HitAt(pages_->Row()).path, model_->FirstWordsAt(pages_->Row()));
}

void SearchDialog::ShowOutcome() {
    open_->setEnabled(pages_->Row() >= 0);
    outcome_->setText(Outcome());
}

QString SearchDialog::Outcome() const {
    if (const auto why = search::WhyNothing(model_->State()); !why.empty()) {
        const std::string folder = platform::SystemPathOf(Folder()).value_or(Folder());
        return "There is nothing to search in " + platform::FromBytes(folder) + ": " +
               QString::fromStdString(std::string(why));
    }
    if (!model_->HasQuery()) return "Type two letters or more";
    const std::uint64_t pages = model_->PageCount();
    QString words = model_->IsSearching() ? "Searching... " : "";
    if (pages == 0 && !model_->IsSearching()) return "No page contains these words";
    words += CountText(pages, "page", "pages") + ", " +
             CountText(model_->MatchCount(), "match", "matches");
    const auto listed = static_cast<std::uint64_t>(model_->rowCount());
    if (listed < pages && !model_->IsSearching()) {
        words += "; the " + CountText(listed) + " with the most matches are listed";
    }
    return words;
}

}  // namespace ui
