#pragma once

#include <QListWidget>
#include <optional>
#include <string>
#include <vector>

namespace ui {

/// A small list box whose items are bytes: what a list file held is written back as it was, also
/// where the local encoding cannot show it.
class ByteList : public QListWidget {
    Q_OBJECT

  public:
    ByteList(const char* name, QWidget* parent);

    void AddItem(const std::string& item);
    /// Makes these the only items.
    void SetItems(const std::vector<std::string>& items);
    std::vector<std::string> Items() const;

    /// The position of the selected item, counted from 0; nothing when none is selected.
    std::optional<int> SelectedIndex() const;
    /// The selected item; "" when none is selected.
    std::string SelectedText() const;

    /// Removes the item at `index` and leaves nothing selected; the keyboard stays where it was.
    void RemoveItem(int index);

  signals:
    /// The Delete key was pressed in the list.
    void DeletePressed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// Selects the row that has the focus, the first one if none has, unless one is selected.
    void SelectCurrent();
    std::string TextOf(const QListWidgetItem& item) const;
};

}  // namespace ui
