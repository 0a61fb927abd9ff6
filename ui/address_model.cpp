#include "ui/address_model.h"

#include <algorithm>

#include "platform/qt/local_text.h"
#include "widgets/elided_text.h"

namespace ui {

AddressModel::AddressModel(crawl::ListItems& items, QObject* parent)
    : QAbstractListModel(parent), items_(items) {
    items_.on_change = [this] { ItemsChanged(); };
    shown_count_ = lowest_count_ = static_cast<int>(items_.Count());
}

AddressModel::~AddressModel() {
    Detach();
}

void AddressModel::Detach() {
    if (observing_) items_.on_change = nullptr;
    observing_ = false;
}

void AddressModel::ItemsChanged() {
    lowest_count_ = std::min(lowest_count_, static_cast<int>(items_.Count()));
    emit Stale();
}

void AddressModel::Update() {
    if (lowest_count_ < shown_count_) {
        beginRemoveRows({}, lowest_count_, shown_count_ - 1);
        shown_count_ = lowest_count_;
        endRemoveRows();
    }
    const int count = static_cast<int>(items_.Count());
    if (count > shown_count_) {
        beginInsertRows({}, shown_count_, count - 1);
        shown_count_ = count;
        endInsertRows();
    }
    lowest_count_ = shown_count_;
}

std::string AddressModel::Address(int row) const {
    const auto item = static_cast<std::size_t>(row);
    return item < items_.Count() ? items_.Item(item) : std::string();
}

int AddressModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_count_;
}

QVariant AddressModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole) return OneLine(platform::FromBytes(Address(index.row())));
    return {};
}

}  // namespace ui
