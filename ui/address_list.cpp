#include "ui/address_list.h"

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/local_text.h"
#include "widgets/elided_text.h"

namespace ui {

namespace {
constexpr int kRefreshMilliseconds = 33;
constexpr int kTextMargin = 4;
}  // namespace

AddressList::AddressList(platform::ListItems& items, QWidget* parent)
    : QAbstractScrollArea(parent), items_(items) {
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Base);
    refresh_.setSingleShot(true);
    refresh_.setInterval(kRefreshMilliseconds);
    connect(&refresh_, &QTimer::timeout, this, &AddressList::Refresh);
    items_.on_change = [this] { ItemsChanged(); };
    shown_count_ = lowest_count_ = items_.Count();
}

AddressList::~AddressList() {
    Detach();
}

void AddressList::Detach() {
    if (observing_) items_.on_change = nullptr;
    observing_ = false;
}

void AddressList::ItemsChanged() {
    lowest_count_ = std::min(lowest_count_, items_.Count());
    if (selected_ && *selected_ >= items_.Count()) selected_.reset();
    if (!refresh_.isActive()) refresh_.start();
}

void AddressList::Refresh() {
    const std::size_t first_changed = std::min(lowest_count_, shown_count_);
    shown_count_ = lowest_count_ = items_.Count();
    UpdateScrollBar();
    const std::size_t end_of_page = FirstRow() + static_cast<std::size_t>(RowsPerPage()) + 1;
    if (first_changed < end_of_page) viewport()->update();
}

void AddressList::UpdateScrollBar() {
    const int count = static_cast<int>(items_.Count());
    verticalScrollBar()->setRange(0, std::max(0, count - RowsPerPage()));
    verticalScrollBar()->setPageStep(RowsPerPage());
}

void AddressList::Select(std::optional<std::size_t> row) {
    if (row && *row >= items_.Count()) row.reset();
    selected_ = row;
    if (row) ScrollTo(*row);
    viewport()->update();
}

void AddressList::MoveSelection(std::ptrdiff_t to) {
    if (items_.Empty()) return;
    const auto last = static_cast<std::ptrdiff_t>(items_.Count()) - 1;
    Select(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(to, 0, last)));
}

void AddressList::ScrollTo(std::size_t row) {
    UpdateScrollBar();
    const int wanted = static_cast<int>(row);
    const int first = verticalScrollBar()->value();
    if (wanted < first) verticalScrollBar()->setValue(wanted);
    const int top_for_last = wanted - RowsPerPage() + 1;
    if (top_for_last > first) verticalScrollBar()->setValue(top_for_last);
}

std::size_t AddressList::FirstRow() const {
    return static_cast<std::size_t>(verticalScrollBar()->value());
}

int AddressList::RowHeight() const {
    return fontMetrics().height() + 2;
}

int AddressList::RowsPerPage() const {
    return std::max(1, viewport()->height() / RowHeight());
}

std::optional<std::size_t> AddressList::RowAt(int y) const {
    if (y < 0) return std::nullopt;
    const std::size_t row = FirstRow() + static_cast<std::size_t>(y / RowHeight());
    if (row >= items_.Count()) return std::nullopt;
    return row;
}

void AddressList::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const int height = RowHeight();
    QRect area(0, 0, viewport()->width(), height);
    for (std::size_t row = FirstRow(); row < items_.Count() && area.top() <= event->rect().bottom();
         ++row, area.translate(0, height)) {
        if (area.intersects(event->rect())) PaintRow(painter, row, area);
    }
    if (hasFocus() && !selected_) {
        QStyleOptionFocusRect focus;
        focus.initFrom(viewport());
        focus.rect = viewport()->rect().adjusted(1, 1, -1, -1);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void AddressList::PaintRow(QPainter& painter, std::size_t row, const QRect& area) const {
    const bool selected = row == selected_;
    if (selected) painter.fillRect(area, palette().highlight());
    painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
    const QRect text_area = area.adjusted(kTextMargin, 0, -kTextMargin, 0);
    painter.drawText(text_area, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     ElideMiddle(items_.Item(row), fontMetrics(), text_area.width()));
    if (selected && hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(viewport());
        focus.rect = area;
        focus.backgroundColor = palette().color(QPalette::Highlight);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

bool AddressList::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const std::optional<std::size_t> row = RowAt(help->y());
    QToolTip::showText(help->globalPos(),
                       row ? TooltipText(platform::FromBytes(items_.Item(*row))) : QString(),
                       viewport());
    return true;
}

void AddressList::resizeEvent(QResizeEvent*) {
    UpdateScrollBar();
}

void AddressList::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        UpdateScrollBar();
        viewport()->update();
    }
}

void AddressList::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void AddressList::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void AddressList::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Select(RowAt(event->position().toPoint().y()));
}

void AddressList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    Select(RowAt(event->position().toPoint().y()));
    if (selected_) emit Activated();
}

void AddressList::keyPressEvent(QKeyEvent* event) {
    const std::ptrdiff_t current = selected_ ? static_cast<std::ptrdiff_t>(*selected_) : -1;
    if (event->matches(QKeySequence::Copy)) {
        if (!selected_) return;
        QApplication::clipboard()->setText(platform::FromBytes(items_.Item(*selected_)));
        return;
    }
    switch (event->key()) {
        case Qt::Key_Up:
            return MoveSelection(current - 1);
        case Qt::Key_Down:
            return MoveSelection(current + 1);
        case Qt::Key_PageUp:
            return MoveSelection(current - RowsPerPage());
        case Qt::Key_PageDown:
            return MoveSelection(current + RowsPerPage());
        case Qt::Key_Home:
            return MoveSelection(0);
        case Qt::Key_End:
            return MoveSelection(static_cast<std::ptrdiff_t>(items_.Count()) - 1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (selected_) emit Activated();
            return;
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

}  // namespace ui
