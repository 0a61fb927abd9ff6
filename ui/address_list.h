#pragma once

#include <QTableView>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "crawl/list_items.h"

namespace ui {

class AddressModel;

/// A list box of addresses. A table without headers: of Qt's views it alone stays fast when a
/// million rows grow and shrink at their end.
class AddressList : public QTableView {
    Q_OBJECT

  public:
    /// What a list that nobody has scrolled keeps in view.
    enum class Shows { Beginning, End };

    /// Shows `items`, which must outlive this, and becomes their one observer.
    AddressList(crawl::ListItems& items, Shows shows, QWidget* parent);

    /// Stops observing the items, so that another list can.
    void Detach();

    /// The address of the selected row, of several the one that has the focus; "" when none is
    /// selected. A selected item that was taken away is not selected any more.
    std::string Selected();

    /// Adds an entry to the menu that asks for the file types of the selected addresses.
    void OfferTypes();

    void keyboardSearch(const QString& typed) override;

  signals:
    /// The selected row was opened from its menu, or Enter was pressed on it.
    void Activated();

    /// This address was double-clicked: the one under the pointer when the first click came.
    void DoubleClicked(const std::string& address);

    /// This address is to become a keyword filter.
    void FilterWanted(const std::string& address);

    /// Files of these types are to be fetched.
    void TypesWanted(const std::vector<std::string>& types);

    /// The items have changed, and the rows with them where they are in sight.
    void Refreshed();

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    // address_list_menu.cpp
    void MakeMenu();
    QAction* AddEntry(const char* name, const QString& caption,
                      const std::function<void()>& handler);
    std::vector<std::string> AllSelected();
    std::vector<std::string> All();

    void ShowChanges();
    void Refresh();
    bool AtEnd() const;
    std::string AddressAt(const QPoint& place) const;
    QString TooltipAt(const QPoint& place) const;

    AddressModel* model_;
    Shows shows_;
    QTimer refresh_;
    std::string pointed_at_;  ///< what was under the pointer when that moved last
    std::string pressed_;     ///< what was under it when its button went down
};

}  // namespace ui
