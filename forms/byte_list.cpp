#include "forms/byte_list.h"

#include <QByteArray>
#include <QKeyEvent>
#include <algorithm>
#include <cstddef>

#include "platform/qt/local_text.h"
#include "widgets/list_focus.h"

namespace ui {

namespace {
constexpr int kBytesRole = Qt::UserRole;
}

ByteList::ByteList(const char* name, QWidget* parent) : QListWidget(parent) {
    setObjectName(QLatin1String(name));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
}

void ByteList::AddItem(const std::string& item) {
    auto* row = new QListWidgetItem(platform::FromBytes(item));
    row->setData(kBytesRole, QByteArray::fromStdString(item));
    addItem(row);
}

void ByteList::SetItems(const std::vector<std::string>& items) {
    clear();
    for (const std::string& item : items)
        AddItem(item);
}

std::vector<std::string> ByteList::Items() const {
    std::vector<std::string> items;
    items.reserve(static_cast<std::size_t>(count()));
    for (int i = 0; i < count(); ++i)
        items.push_back(TextOf(*item(i)));
    return items;
}

std::optional<int> ByteList::SelectedIndex() const {
    const QList<QListWidgetItem*> selected = selectedItems();
    if (selected.empty()) return std::nullopt;
    return row(selected.front());
}

std::string ByteList::SelectedText() const {
    const std::optional<int> index = SelectedIndex();
    return index ? TextOf(*item(*index)) : std::string();
}

void ByteList::RemoveItem(int index) {
    delete takeItem(index);
    // Qt selects the neighbour of a removed row; here only the focus moves there.
    setCurrentRow(std::min(index, count() - 1), QItemSelectionModel::Clear);
}

void ByteList::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Delete)) {
        emit DeletePressed();
        return;
    }
    const bool steps = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    // The first step only selects the row that already has the focus.
    if (steps && selectedItems().empty()) {
        SelectCurrent();
        return;
    }
    QListWidget::keyPressEvent(event);
    // If the key's target row already has the focus, nothing moves, and Qt selects nothing.
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) SelectCurrent();
}

void ByteList::focusInEvent(QFocusEvent* event) {
    QListWidget::focusInEvent(event);
    // Show keyboard users where in the list they are.
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
        event->reason() == Qt::ShortcutFocusReason) {
        SelectCurrent();
    }
}

void ByteList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    PaintFocus(*this);
}

void ByteList::SelectCurrent() {
    if (selectedItems().empty() && count() > 0) setCurrentRow(std::max(0, currentRow()));
}

std::string ByteList::TextOf(const QListWidgetItem& item) const {
    return item.data(kBytesRole).toByteArray().toStdString();
}

}  // namespace ui
