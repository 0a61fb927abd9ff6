#pragma once

#include <QAbstractListModel>
#include <string>

#include "crawl/list_items.h"

namespace ui {

/// A list box's items for Qt's views. The items change thousands of times a second and number up to
/// a million, so the views are told of many changes at once: what they know is what was there at
/// the last `Update`.
class AddressModel : public QAbstractListModel {
    Q_OBJECT

  public:
    /// Becomes the one observer of `items`, which must outlive this.
    AddressModel(crawl::ListItems& items, QObject* parent);
    ~AddressModel() override;

    /// Stops observing the items, so that another model can.
    void Detach();

    /// Tells the views what has changed since the last time. Rows that were taken away go, also
    /// where others have come in their place meanwhile.
    void Update();

    /// The whole address of a row; "" where the item has gone since the last `Update`.
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
    int shown_count_ = 0;   ///< how many items there were at the last update
    int lowest_count_ = 0;  ///< the fewest since then: rows from there on are others now
};

}  // namespace ui
