#pragma once

#include <QTableView>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "crawl/list_items.h"

namespace ui {

class AddressModel;

/// A list box of addresses. It is a table without headers, the only one of Qt's views that stays
/// fast when a million rows grow and shrink at their end.
class AddressList : public QTableView {
    Q_OBJECT

  public:
    /// What stays in view until the user scrolls.
    enum class Shows { Beginning, End };

    /// Shows `items`, which must outlive this object, and becomes their only observer.
    AddressList(crawl::ListItems& items, Shows shows, QWidget* parent);

    /// Stops observing the items, so that another list can.
    void Detach();

    /// The address of the selected row; if several are selected, that of the one with the focus; ""
    /// if none is. Removing a selected item deselects it.
    std::string Selected();

    /// Adds a menu entry that requests the file types of the selected addresses.
    void OfferTypes();

    void keyboardSearch(const QString& typed) override;

  signals:
    /// The selected row was opened from its menu or with Enter.
    void Activated();

    /// This address was double-clicked: the one that was under the pointer at the first click.
    void DoubleClicked(const std::string& address);

    /// The user wants a keyword filter made from this address.
    void FilterWanted(const std::string& address);

    /// The user wants files of these types to be fetched.
    void TypesWanted(const std::vector<std::string>& types);

    /// The items have changed, and so have the rows if they are visible.
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
    std::string pointed_at_;  ///< under the pointer when it last moved
    std::string pressed_;     ///< under the pointer when a button was pressed
};

}  // namespace ui
