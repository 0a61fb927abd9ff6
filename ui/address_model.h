#pragma once

#include <QAbstractListModel>
#include <string>

#include "crawl/list_items.h"

namespace ui {

/// A list box's items for Qt's views. There may be a million, and they change thousands of times a
/// second, so the views are notified of many changes at once: they know the items as of the last
/// `Update`.
class AddressModel : public QAbstractListModel {
    Q_OBJECT

  public:
    /// Becomes the only observer of `items`, which must outlive this object.
    AddressModel(crawl::ListItems& items, QObject* parent);
    ~AddressModel() override;

    /// Stops observing the items, so that another model can.
    void Detach();

    /// Notifies the views of the changes since the last call. A row whose item was removed
    /// disappears, even if another item has taken its place.
    void Update();

    /// The whole address of a row; "" if the item was removed since the last `Update`.
    std::string Address(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  signals:
    /// The items have changed; an `Update` is due.
    void Stale();

  private:
    void ItemsChanged();

    crawl::ListItems& items_;
    bool observing_ = true;
    int shown_count_ = 0;   ///< the item count at the last update
    int lowest_count_ = 0;  ///< the lowest count since then: later rows have changed
};

}  // namespace ui
