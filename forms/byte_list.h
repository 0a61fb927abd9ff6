#pragma once

#include <QListWidget>
#include <optional>
#include <string>
#include <vector>

namespace ui {

/// A small list box whose items are bytes, so that a list file is written back unchanged even if
/// the local encoding cannot show it.
class ByteList : public QListWidget {
    Q_OBJECT

  public:
    ByteList(const char* name, QWidget* parent);

    void AddItem(const std::string& item);
    /// Replaces all items.
    void SetItems(const std::vector<std::string>& items);
    std::vector<std::string> Items() const;

    /// The index of the selected item, counted from 0; nothing if none is selected.
    std::optional<int> SelectedIndex() const;
    /// The selected item; "" if none is selected.
    std::string SelectedText() const;

    /// Removes the item at `index`. Nothing is selected afterwards; the focus stays near the
    /// removed row.
    void RemoveItem(int index);

  signals:
    /// The Delete key was pressed in the list.
    void DeletePressed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// If no row is selected, selects the one with the focus, or the first one.
    void SelectCurrent();
    std::string TextOf(const QListWidgetItem& item) const;
};

}  // namespace ui
