#pragma once

#include <QAbstractScrollArea>
#include <QString>
#include <QTimer>
#include <cstddef>
#include <optional>

#include "platform/list_items.h"

namespace ui {

/// A list box over items that change fast and are many. It looks only at the rows on screen, and at
/// most some thirty times a second, so a change costs the same at ten items and at a million.
class AddressList : public QAbstractScrollArea {
    Q_OBJECT

  public:
    /// Shows `items`, which must outlive this, and becomes their one observer.
    AddressList(platform::ListItems& items, QWidget* parent);
    ~AddressList() override;

    /// Stops observing the items, so that another view can.
    void Detach();

    /// The selected row from 0, or nothing. It names an existing item at any time; a selected item
    /// that is taken away leaves nothing selected.
    std::optional<std::size_t> Selected() const { return selected_; }
    void Select(std::optional<std::size_t> row);

  signals:
    /// The selected row was double-clicked, or Enter was pressed on it.
    void Activated();

  protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void ItemsChanged();
    void Refresh();
    void UpdateScrollBar();
    void MoveSelection(std::ptrdiff_t to);
    void ScrollTo(std::size_t row);
    void PaintRow(QPainter& painter, std::size_t row, const QRect& area) const;
    std::optional<std::size_t> RowAt(int y) const;
    std::size_t FirstRow() const;
    int RowHeight() const;
    int RowsPerPage() const;

    platform::ListItems& items_;
    bool observing_ = true;
    std::optional<std::size_t> selected_;
    QTimer refresh_;
    std::size_t shown_count_ = 0;   ///< how many items there were at the last refresh
    std::size_t lowest_count_ = 0;  ///< the fewest since then: rows from there on may have changed
};

}  // namespace ui
