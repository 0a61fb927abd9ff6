#include "forms/report_dialog.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>

#include "crawl/crawl_state.h"
#include "crawl/report_text.h"
#include "engine/endings.h"
#include "engine/http_exchange.h"
#include "engine/scheduler.h"
#include "forms/counts.h"
#include "forms/report_model.h"
#include "forms/report_saver.h"
#include "forms/report_table.h"
#include "forms/show_over.h"
#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"
#include "text/http_scheme.h"
#include "text/text.h"
#include "widgets/contrast.h"
#include "widgets/controls.h"
#include "widgets/elided_label.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

namespace {

using crawl::Outcome;

/// Below "All", in this order.
constexpr Outcome kOutcomes[] = {Outcome::Saved,    Outcome::Moved,      Outcome::Error,
                                 Outcome::Short,    Outcome::Unanswered, Outcome::NotWritten,
                                 Outcome::TooLarge, Outcome::NotAsked,   Outcome::Unfinished};

constexpr int kAnswerMilliseconds = 5000;

/// The most rows that may be copied to the clipboard.
constexpr int kMostCopied = 50'000;

QString Addresses(std::size_t count) {
    return CountText(count, "address", "addresses");
}

std::size_t CountThatEnded() {
    return crawl::Report.Ended().size();
}

}  // namespace

ReportDialog::ReportDialog(QWidget* parent) : QDialog(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle("Report");
    setFont(LabelFont());
    MakeControls();
    MakeActions();
    PlaceControls();
    ConnectHandlers();
    ShowCounts();
    EnableActions();
}

ReportDialog* ReportDialog::ShowOver(QWidget* parent) {
    return ShowOnlyOneOver<ReportDialog>(parent);
}

void ReportDialog::MakeControls() {
    model_ = new ReportModel(crawl::Report, this);
    filter_ = MakeSearchBox("Filter", "Part of an address or a detail", this);
    filter_->setAccessibleName("Filter");
    outcomes_ = new QListWidget(this);
    outcomes_->setObjectName("Outcomes");
    outcomes_->setAccessibleName("Outcomes");
    outcomes_->setFixedWidth(Twips(2100));
    for (std::size_t i = 0; i <= std::size(kOutcomes); ++i)
        outcomes_->addItem("");
    outcomes_->setCurrentRow(0);
    rows_ = new ReportTable(model_, this);
    summary_ = new ElidedLabel("Summary", "", this);
    open_button_ = MakeFormButton("OpenFileButton", "&Open File", this);
    copy_button_ = MakeFormButton("CopyButton", "&Copy", this);
    save_button_ = MakeFormButton("SaveAs", "&Save As...", this);
    close_button_ = MakeFormButton("Close", "Close", this);
    for (QPushButton* button : {open_button_, copy_button_, save_button_, close_button_})
        button->setAutoDefault(false);
}

void ReportDialog::MakeActions() {
    rows_->setContextMenuPolicy(Qt::ActionsContextMenu);
    open_file_ = MakeAction("OpenFile", "Open the Saved File", {Qt::Key_Return, Qt::Key_Enter});
    open_address_ = MakeAction("OpenAddress", "Open the Address in the Browser",
                               {Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter});
    copy_rows_ = MakeAction("CopyRows", "Copy", QKeySequence::keyBindings(QKeySequence::Copy));
    copy_addresses_ =
        MakeAction("CopyAddresses", "Copy Addresses Only", {Qt::CTRL | Qt::SHIFT | Qt::Key_C});
    MakeSortMenu();
}

QAction* ReportDialog::MakeAction(const char* name, const QString& caption,
                                  const QList<QKeySequence>& keys) {
    auto* action = new QAction(caption, rows_);
    action->setObjectName(name);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    rows_->addAction(action);
    return action;
}

void ReportDialog::MakeSortMenu() {
    auto* menu = new QMenu("Sort by", this);
    const auto add = [this, menu](int column, const QString& caption) {
        QAction* const action = menu->addAction(caption);
        connect(action, &QAction::triggered, this,
                [this, column] { rows_->sortByColumn(column, Qt::AscendingOrder); });
    };
    add(-1, "Time");
    for (int column = 0; column < kReportColumnCount; ++column)
        add(column, model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    rows_->addAction(menu->menuAction());
}

void ReportDialog::PlaceControls() {
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(open_button_);
    buttons->addWidget(copy_button_);
    buttons->addWidget(save_button_);
    buttons->addStretch();
    buttons->addWidget(close_button_);

    auto* grid = new QGridLayout(this);
    grid->addWidget(filter_, 0, 0, 1, 2);
    grid->addWidget(outcomes_, 1, 0);
    grid->addWidget(rows_, 1, 1);
    grid->addWidget(summary_, 2, 0, 1, 2);
    grid->addLayout(buttons, 3, 0, 1, 2);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
    resize(Twips(15900), Twips(8400));
    SetTabOrder(
        {filter_, outcomes_, rows_, open_button_, copy_button_, save_button_, close_button_});
    rows_->setFocus();
}

void ReportDialog::ConnectHandlers() {
    connect(filter_, &QLineEdit::textChanged, this, &ReportDialog::SetFilter);
    auto* down = new QShortcut(Qt::Key_Down, filter_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, rows_, [this] { rows_->setFocus(Qt::OtherFocusReason); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, filter_, [this] {
        filter_->setFocus();
        filter_->selectAll();
    });
    connect(outcomes_, &QListWidget::currentRowChanged, this, &ReportDialog::SetFilter);
    answered_.setSingleShot(true);
    connect(&answered_, &QTimer::timeout, this, &ReportDialog::ShowSummary);
    connect(model_, &ReportModel::Refreshed, this, &ReportDialog::ShowCounts);
    connect(rows_, &ReportTable::CurrentChanged, this, &ReportDialog::EnableActions);
    connect(rows_, &QTableView::doubleClicked, this, &ReportDialog::OpenFile);
    connect(open_file_, &QAction::triggered, this, &ReportDialog::OpenFile);
    connect(open_address_, &QAction::triggered, this, &ReportDialog::OpenAddress);
    connect(copy_rows_, &QAction::triggered, this, [this] { CopyRows(false); });
    connect(copy_addresses_, &QAction::triggered, this, [this] { CopyRows(true); });
    connect(open_button_, &QPushButton::clicked, this, &ReportDialog::OpenFile);
    connect(copy_button_, &QPushButton::clicked, this, [this] { CopyRows(false); });
    connect(save_button_, &QPushButton::clicked, this, &ReportDialog::SaveAs);
    connect(close_button_, &QPushButton::clicked, this, &QDialog::close);
}

void ReportDialog::ShowCounts() {
    outcomes_->item(0)->setText("All (" + CountText(CountThatEnded()) + ")");
    const QColor text = palette().color(QPalette::Text);
    const QColor quiet = QuietText(text, {palette().color(QPalette::Base)});
    for (int i = 0; i < static_cast<int>(std::size(kOutcomes)); ++i) {
        const bool any = crawl::Report.CountOf(kOutcomes[i]) > 0;
        outcomes_->item(i + 1)->setForeground(any ? text : quiet);
        const QString name = QString::fromStdString(std::string(crawl::NameOf(kOutcomes[i])));
        outcomes_->item(i + 1)->setText(name + " (" +
                                        CountText(crawl::Report.CountOf(kOutcomes[i])) + ")");
    }
    ShowSummary();
    EnableActions();
}

void ReportDialog::ShowSummary() {
    if (answered_.isActive()) return;
    const std::size_t ended = CountThatEnded();
    const auto shown = static_cast<std::size_t>(model_->rowCount());
    QString words =
        shown == ended ? Addresses(ended) : CountText(shown) + " of " + Addresses(ended);
    if (model_->IsSearching()) words = "Searching...";
    if (const std::size_t rest = crawl::Report.Count() - ended; rest > 0) {
        words += ", " + CountText(rest) + " not fetched yet";
    }
    if (const std::size_t there = crawl::Report.AlreadyThere(); there > 0) {
        words += ", " + CountText(there) + " already there";
    }
    if (summary_->text() != words) summary_->setText(words);
}

/// Shows an answer to the user in place of the summary, long enough to be read during a crawl.
void ReportDialog::Answer(const QString& words) {
    summary_->setText(words);
    answered_.start(kAnswerMilliseconds);
}

void ReportDialog::EnableActions() {
    const bool any = rows_->currentIndex().isValid();
    for (QAction* action : {open_file_, open_address_, copy_rows_, copy_addresses_})
        action->setEnabled(any);
    open_button_->setEnabled(any);
    copy_button_->setEnabled(any);
    save_button_->setEnabled(CountThatEnded() > 0 && saver_ == nullptr);
}

void ReportDialog::SetFilter() {
    answered_.stop();
    ReportView view = model_->View();
    view.text = platform::ToBytes(filter_->text());
    const int outcome = outcomes_->currentRow();
    view.outcome.reset();
    if (outcome > 0) view.outcome = kOutcomes[outcome - 1];
    model_->SetView(view);
    ShowSummary();
}

void ReportDialog::OpenFile() {
    if (!rows_->currentIndex().isValid()) return;
    const crawl::ReportRow& row = model_->RowAt(rows_->currentIndex().row());
    const std::string file =
        bas_Connections::SavedFileOf(crawl::ReportFolder, std::string(row.address));
    const platform::Services& system = platform::System();
    if (system.files.FileLength(file) && !system.files.FolderExists(file)) {
        system.processes.OpenFile(file);
    } else {
        Answer("No such file: " + platform::FromBytes(platform::SystemPathOf(file).value_or(file)));
    }
}

void ReportDialog::OpenAddress() {
    if (!rows_->currentIndex().isValid()) return;
    std::string address(text::kHttp);
    address += model_->RowAt(rows_->currentIndex().row()).address;
    platform::System().processes.OpenAddress(address);
}

void ReportDialog::CopyRows(bool addresses_only) {
    const std::vector<int> rows = rows_->SelectedRows(kMostCopied + 1);
    if (rows.size() > kMostCopied) {
        Answer("Too many rows to copy. \"Save As...\" writes all rows to a file.");
        return;
    }
    QString text;
    for (const int row : rows) {
        if (addresses_only) {
            text += platform::FromBytes(std::string(model_->RowAt(row).address)) + "\n";
            continue;
        }
        for (int column = 0; column < kReportColumnCount; ++column) {
            text += model_->index(row, column).data().toString();
            text += column + 1 < kReportColumnCount ? "\t" : "\n";
        }
    }
    if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

void ReportDialog::SaveAs() {
    auto* chooser = new QFileDialog(this, "Save the Report As");
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setAcceptMode(QFileDialog::AcceptSave);
    chooser->setNameFilter("Comma-separated values (*.csv)");
    chooser->setDefaultSuffix("csv");
    connect(chooser, &QFileDialog::fileSelected, this, [this](const QString& file) {
        saver_ =
            new ReportSaver(crawl::Report, platform::PathTextOf(platform::ToBytes(file)), this);
        connect(saver_, &ReportSaver::Done, this, [this, file](const std::string& why_not) {
            saver_ = nullptr;
            EnableActions();
            Answer(why_not.empty() ? "Saved as " + file
                                   : file + " was not saved: " + platform::FromBytes(why_not));
        });
        EnableActions();
    });
    chooser->open();
}

}  // namespace ui
