#pragma once

#include <QTableView>
#include <cstdint>
#include <vector>

namespace ui {

class ReportModel;

/// The rows of the report. The view follows the end until the user scrolls away, and keeps the
/// selection when rows are added, removed or sorted.
class ReportTable : public QTableView {
    Q_OBJECT

  public:
    ReportTable(ReportModel* model, QWidget* parent);

    /// At most `most` selected rows, in the order shown.
    std::vector<int> SelectedRows(int most) const;

    void keyboardSearch(const QString& typed) override;

  signals:
    /// The current row has changed.
    void CurrentChanged();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

  private:
    void SetColumnWidths();
    void GiveAddressTheRest();
    void FollowRows();
    void RememberSelection();
    void RestoreSelection();
    bool IsAtEnd() const;

    ReportModel* model_;
    bool at_end_ = true;
    int scrolled_to_ = 0;
    std::vector<std::size_t> selected_;  ///< row numbers in the report, during a reset
    std::size_t current_ = 0;
};

}  // namespace ui
