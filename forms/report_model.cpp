#include "forms/report_model.h"

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <algorithm>

#include "crawl/report_text.h"
#include "forms/counts.h"
#include "platform/qt/local_text.h"
#include "widgets/contrast.h"
#include "widgets/elided_text.h"

namespace ui {

namespace {

using crawl::Outcome;

constexpr int kRefreshMilliseconds = 100;
constexpr qint64 kWorkMilliseconds = 6;
/// Without a rest, a long report that keeps changing would be sorted all the time.
constexpr qint64 kLeastRest = 250;
constexpr qint64 kRestPerWork = 4;

constexpr QColor kLoss(0xd0, 0x3a, 0x30);

constexpr const char* kHeadings[kReportColumnCount] = {"Address",   "Outcome", "Status",  "Bytes",
                                                       "Announced", "Tries",   "Seconds", "Detail"};

bool IsNumber(ReportColumn column) {
    return column >= ReportColumn::Status && column <= ReportColumn::Seconds;
}

QString CellText(const crawl::ReportRow& row, ReportColumn column) {
    const bool was_tried = row.attempts > 0;
    switch (column) {
        case ReportColumn::Address:
            return OneLine(platform::FromBytes(std::string(row.address)));
        case ReportColumn::Outcome:
            return QString::fromStdString(std::string(crawl::NameOf(row.outcome)));
        case ReportColumn::Status:
            return row.status == 0 ? QString() : QString::number(row.status);
        case ReportColumn::Bytes:
            return row.status == 0 && row.bytes == 0 ? QString() : CountText(row.bytes);
        case ReportColumn::Announced:
            return row.announced ? CountText(*row.announced) : QString();
        case ReportColumn::Tries:
            return was_tried ? QString::number(row.attempts) : QString();
        case ReportColumn::Seconds:
            return was_tried ? QString::number(row.took.count() / 1000.0, 'f', 3) : QString();
        case ReportColumn::Detail:
            return OneLine(platform::FromBytes(std::string(row.detail)));
    }
    return {};
}

}  // namespace

ReportModel::ReportModel(crawl::AddressReport& report, QObject* parent)
    : QAbstractTableModel(parent), report_(report), rows_(report) {
    report_.AddObserver(*this);
    shown_count_ = static_cast<int>(rows_.Count());
    shown_changes_ = report_.Changes();
    refresh_.setInterval(kRefreshMilliseconds);
    connect(&refresh_, &QTimer::timeout, this, &ReportModel::Refresh);
    refresh_.start();
    connect(&work_, &QTimer::timeout, this, &ReportModel::Work);
}

ReportModel::~ReportModel() {
    report_.RemoveObserver(*this);
}

void ReportModel::SetView(const ReportView& view) {
    if (view == View()) return;
    rows_.SetView(view);
    searching_ = true;
    BeginUpdate();
    // Most reports are short, so their rows appear at once.
    Work();
    emit Refreshed();
}

void ReportModel::BeginUpdate() {
    since_update_.start();
    work_.start(0);
}

void ReportModel::AboutToClear() {
    beginResetModel();
    rows_.Clear();
    shown_count_ = 0;
    endResetModel();
    BeginUpdate();
}

void ReportModel::Refresh() {
    if (rows_.IsStale() && !rows_.IsUpdating() && since_update_.elapsed() >= rest_) {
        rows_.BeginUpdate();
        BeginUpdate();
    }
    if (shown_changes_ == report_.Changes()) return;
    shown_changes_ = report_.Changes();
    ShowAddedRows();
    emit Refreshed();
}

void ReportModel::Work() {
    QElapsedTimer worked;
    worked.start();
    while (!worked.hasExpired(kWorkMilliseconds)) {
        if (rows_.ContinueUpdate()) ShowFoundRows();
        if (!rows_.IsUpdating()) break;
    }
    if (rows_.IsUpdating()) return;
    work_.stop();
    rest_ = std::max(kLeastRest, kRestPerWork * since_update_.elapsed());
}

void ReportModel::ShowFoundRows() {
    const bool only_more = rows_.CountThatStays() >= static_cast<std::size_t>(shown_count_);
    if (!only_more) beginResetModel();
    rows_.TakeOver();
    if (only_more) {
        ShowAddedRows();
    } else {
        shown_count_ = static_cast<int>(rows_.Count());
        endResetModel();
    }
    searching_ = false;
    emit Refreshed();
}

void ReportModel::ShowAddedRows() {
    const int count = static_cast<int>(rows_.Count());
    if (count <= shown_count_) return;
    beginInsertRows({}, shown_count_, count - 1);
    shown_count_ = count;
    endInsertRows();
}

int ReportModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_count_;
}

int ReportModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kReportColumnCount;
}

QVariant ReportModel::data(const QModelIndex& index, int role) const {
    const auto column = static_cast<ReportColumn>(index.column());
    if (role == Qt::DisplayRole) return CellText(RowAt(index.row()), column);
    if (role == Qt::TextAlignmentRole && IsNumber(column)) {
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role == Qt::ForegroundRole && column == ReportColumn::Outcome) {
        return ColourOf(RowAt(index.row()).outcome);
    }
    return {};
}

/// The colour of an outcome that lost a file, readable on dark desktops, too.
QVariant ReportModel::ColourOf(crawl::Outcome outcome) {
    switch (outcome) {
        case Outcome::Short:
        case Outcome::Unanswered:
        case Outcome::NotWritten:
        case Outcome::TooLarge:
            return ReadableText(kLoss, QApplication::palette().color(QPalette::Base));
        default:
            return {};
    }
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return QString(kHeadings[section]);
    if (role == Qt::TextAlignmentRole) {
        return QVariant(
            (IsNumber(static_cast<ReportColumn>(section)) ? Qt::AlignRight : Qt::AlignLeft) |
            Qt::AlignVCenter);
    }
    return {};
}

void ReportModel::sort(int column, Qt::SortOrder order) {
    ReportView view = View();
    view.sorted_by.reset();
    if (column >= 0) view.sorted_by = static_cast<ReportColumn>(column);
    view.descending = column >= 0 && order == Qt::DescendingOrder;
    SetView(view);
}

}  // namespace ui
