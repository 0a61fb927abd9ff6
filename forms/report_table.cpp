#include "forms/report_table.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelection>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <limits>

#include "forms/report_model.h"
#include "widgets/elided_text.h"

namespace ui {

namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
/// A selection of more rows is not restored after sorting.
constexpr int kMostKeptSelected = 10'000;
constexpr int kLeastAddressCharacters = 24;

/// Separates numbers from the text to their right, and shows cut text in a tooltip.
class ReportCells : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        if (index.column() == static_cast<int>(ReportColumn::Detail)) {
            const auto group =
                (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
            const bool selected = (option.state & QStyle::State_Selected) != 0;
            if (selected)
                painter->fillRect(cell.rect, cell.palette.brush(group, QPalette::Highlight));
            cell.rect.setLeft(cell.rect.left() + cell.fontMetrics.averageCharWidth());
        }
        QStyledItemDelegate::paint(painter, cell, index);
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip) {
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        }
        const QString text = index.data().toString();
        const bool cut = sizeHint(option, index).width() > view->visualRect(index).width();
        QToolTip::showText(event->globalPos(), cut ? TooltipText(text) : QString(), view);
        return true;
    }
};

}  // namespace

ReportTable::ReportTable(ReportModel* model, QWidget* parent) : QTableView(parent), model_(model) {
    setObjectName("Rows");
    setAccessibleName("Addresses");
    setModel(model);
    setItemDelegate(new ReportCells(this));
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicatorClearable(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    setShowGrid(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setTabKeyNavigation(false);
    SetColumnWidths();
    FollowRows();
}

void ReportTable::SetColumnWidths() {
    static constexpr const char* kWidest[kReportColumnCount] = {
        "",           "not written",
        "",           "99,999,999",
        "99,999,999", "",
        "9999.999",   "No space left on device"};
    const int heading_extra = fontMetrics().horizontalAdvance("MM");  // the sort indicator
    for (int column = 1; column < kReportColumnCount; ++column) {
        const QString heading =
            model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        setColumnWidth(column, std::max(fontMetrics().horizontalAdvance(kWidest[column]),
                                        fontMetrics().horizontalAdvance(heading)) +
                                   heading_extra);
    }
}

void ReportTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    GiveAddressTheRest();
    if (at_end_) scrollToBottom();
}

void ReportTable::GiveAddressTheRest() {
    int others = 0;
    for (int column = 1; column < kReportColumnCount; ++column)
        others += columnWidth(column);
    const int least = fontMetrics().averageCharWidth() * kLeastAddressCharacters;
    setColumnWidth(0, std::max(least, viewport()->width() - others));
}

void ReportTable::FollowRows() {
    connect(model_, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this] { at_end_ = IsAtEnd() && !model_->View().sorted_by; });
    connect(model_, &QAbstractItemModel::rowsInserted, this, [this] {
        updateGeometries();  // otherwise the scroll bar does not know the new end yet
        if (at_end_) scrollToBottom();
    });
    connect(model_, &QAbstractItemModel::modelAboutToBeReset, this,
            &ReportTable::RememberSelection);
    connect(model_, &QAbstractItemModel::modelReset, this, &ReportTable::RestoreSelection);
    connect(model_, &ReportModel::Refreshed, this, [this] { viewport()->update(); });
}

bool ReportTable::IsAtEnd() const {
    return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

std::vector<int> ReportTable::SelectedRows(int most) const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (static_cast<int>(rows.size()) == most) break;
            rows.push_back(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ReportTable::RememberSelection() {
    at_end_ = IsAtEnd() && !model_->View().sorted_by;
    scrolled_to_ = verticalScrollBar()->value();
    current_ = currentIndex().isValid() ? model_->NumberAt(currentIndex().row()) : kNone;
    selected_.clear();
    for (const int row : SelectedRows(kMostKeptSelected + 1))
        selected_.push_back(model_->NumberAt(row));
    if (selected_.size() > kMostKeptSelected) selected_.clear();
    std::sort(selected_.begin(), selected_.end());
}

void ReportTable::RestoreSelection() {
    updateGeometries();
    verticalScrollBar()->setValue(scrolled_to_);
    if (at_end_) scrollToBottom();
    if (current_ == kNone && selected_.empty()) return;
    QItemSelection selection;
    int current = -1;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const std::size_t number = model_->NumberAt(row);
        if (number == current_) current = row;
        if (!std::binary_search(selected_.begin(), selected_.end(), number)) continue;
        const QModelIndex left = model_->index(row, 0);
        selection.append({left, model_->index(row, kReportColumnCount - 1)});
    }
    selectionModel()->setCurrentIndex(model_->index(current, 0), QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (current >= 0 && !at_end_) scrollTo(model_->index(current, 0));
}

void ReportTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    emit CurrentChanged();
}

void ReportTable::focusInEvent(QFocusEvent* event) {
    // Show keyboard users where in the table they are.
    if (event->reason() != Qt::MouseFocusReason && !currentIndex().isValid() &&
        model_->rowCount() > 0) {
        selectRow(at_end_ && IsAtEnd() ? model_->rowCount() - 1 : rowAt(0));
    }
    QTableView::focusInEvent(event);
}

QModelIndex ReportTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // In a table, Home and End would stay in the row.
    if (action == MoveHome) return model_->index(0, 0);
    if (action == MoveEnd) return model_->index(model_->rowCount() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

void ReportTable::keyboardSearch(const QString&) {
    // Qt's search would read every row at every key. The filter box replaces it.
}

}  // namespace ui
