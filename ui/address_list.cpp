#include "ui/address_list.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QToolTip>

#include "platform/qt/local_text.h"
#include "ui/address_model.h"
#include "widgets/elided_text.h"
#include "widgets/list_focus.h"

namespace ui {

namespace {

constexpr int kRefreshMilliseconds = 50;

/// The space that a view leaves on either side of a row's text.
int TextMargin(const QWidget& list) {
    return list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
}

bool ByKeyboard(const QFocusEvent& event) {
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
           event.reason() == Qt::ShortcutFocusReason;
}

}  // namespace

AddressList::AddressList(crawl::ListItems& items, Shows shows, QWidget* parent)
    : QTableView(parent), model_(new AddressModel(items, this)), shows_(shows) {
    setModel(model_);
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2);
    setShowGrid(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setTabKeyNavigation(false);
    MakeMenu();

    refresh_.setSingleShot(true);
    refresh_.setInterval(kRefreshMilliseconds);
    connect(&refresh_, &QTimer::timeout, this, &AddressList::Refresh);
    connect(model_, &AddressModel::Stale, this, [this] {
        if (!refresh_.isActive()) refresh_.start();
    });
    setMouseTracking(true);
}

void AddressList::Detach() {
    model_->Detach();
}

std::string AddressList::Selected() {
    ShowChanges();
    const QItemSelection selected = selectionModel()->selection();
    if (selected.empty()) return {};
    return model_->Address(selected.contains(currentIndex()) ? currentIndex().row()
                                                             : selected.front().top());
}

void AddressList::ShowChanges() {
    const bool at_end = AtEnd();
    model_->Update();
    // Qt delays this, and until then the scroll bar does not know the new end.
    updateGeometries();
    if (at_end) scrollToBottom();
    viewport()->update();
    if (QToolTip::isVisible() && viewport()->underMouse() &&
        TooltipAt(viewport()->mapFromGlobal(QCursor::pos())).isEmpty()) {
        QToolTip::hideText();
    }
}

void AddressList::Refresh() {
    // A hidden list, as in an unattended run, costs nothing.
    if (isVisible()) ShowChanges();
    emit Refreshed();
}

void AddressList::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    Refresh();
}

/// Whether to keep the end in view, because the user has not scrolled away from it.
bool AddressList::AtEnd() const {
    return shows_ == Shows::End && verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

void AddressList::resizeEvent(QResizeEvent* event) {
    const bool at_end = AtEnd();
    QTableView::resizeEvent(event);
    if (at_end) scrollToBottom();
}

void AddressList::focusInEvent(QFocusEvent* event) {
    // Show keyboard users where in the list they are.
    if (ByKeyboard(*event) && !selectionModel()->hasSelection() && model_->rowCount() > 0) {
        selectRow(shows_ == Shows::End ? model_->rowCount() - 1 : 0);
    }
    QTableView::focusInEvent(event);
}

QModelIndex AddressList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // In a table, Home and End would stay in the row.
    if (action == MoveHome) return model_->index(0);
    if (action == MoveEnd) return model_->index(model_->rowCount() - 1);
    return QTableView::moveCursor(action, modifiers);
}

void AddressList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit Activated();
    } else {
        QTableView::keyPressEvent(event);
    }
}

std::string AddressList::AddressAt(const QPoint& place) const {
    const QModelIndex row = indexAt(place);
    return row.isValid() ? model_->Address(row.row()) : std::string();
}

QString AddressList::TooltipAt(const QPoint& place) const {
    const std::string address = AddressAt(place);
    // Rows may have moved under the resting pointer; the tooltip would describe the wrong one.
    if (address.empty() || address != pointed_at_) return {};
    const QString text = platform::FromBytes(address);
    const int width = visualRect(indexAt(place)).width() - 2 * TextMargin(*this);
    return ElideMiddle(text, fontMetrics(), width) == text ? QString() : TooltipText(text);
}

bool AddressList::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    if (!indexAt(help->pos()).isValid()) return QTableView::viewportEvent(event);
    QToolTip::showText(help->globalPos(), TooltipAt(help->pos()), viewport());
    return true;
}

void AddressList::mouseMoveEvent(QMouseEvent* event) {
    pointed_at_ = AddressAt(event->position().toPoint());
    QTableView::mouseMoveEvent(event);
}

void AddressList::mousePressEvent(QMouseEvent* event) {
    pressed_ = AddressAt(event->position().toPoint());
    QTableView::mousePressEvent(event);
}

void AddressList::mouseDoubleClickEvent(QMouseEvent* event) {
    // The rows may have moved since the first click, so Qt's own check would pick the wrong row.
    if (event->button() == Qt::LeftButton && !pressed_.empty()) emit DoubleClicked(pressed_);
    event->accept();
}

void AddressList::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    PaintFocus(*this);
}

void AddressList::keyboardSearch(const QString&) {
    // Qt's search would read every row, perhaps a million, at every key.
}

}  // namespace ui
