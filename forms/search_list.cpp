#include "forms/search_list.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <algorithm>

#include "forms/search_model.h"
#include "widgets/contrast.h"
#include "widgets/elided_text.h"
#include "widgets/twips.h"

namespace ui {

namespace {

constexpr int kSnippetLines = 2;
constexpr int kMargin = 75;
constexpr QChar kEllipsis(0x2026);

QTextCharFormat Bold() {
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    return format;
}

/// Breaks the layout's text into lines of `width` and returns the end of the last line that fits.
int LayOut(QTextLayout& layout, qreal width) {
    qreal top = 0;
    int end = 0;
    layout.beginLayout();
    for (int i = 0; i < kSnippetLines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        line.setPosition({0, top});
        top += line.height();
        end = line.textStart() + line.textLength();
    }
    layout.endLayout();
    return end;
}

/// Paints a page: its path and its number of matches on one line, then its snippet.
class PageRow : public QStyledItemDelegate {
  public:
    PageRow(const SearchModel& model, QObject* parent)
        : QStyledItemDelegate(parent), model_(model) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        const int lines = (1 + kSnippetLines) * option.fontMetrics.lineSpacing();
        return {0, OnPixelGrid(lines + 2 * Twips(kMargin))};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        row.text.clear();
        row.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

        const bool active = (row.state & QStyle::State_Active) != 0;
        const bool selected = (row.state & QStyle::State_Selected) != 0;
        const auto group = active ? QPalette::Active : QPalette::Inactive;
        const QColor text =
            row.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
        const QColor ground =
            row.palette.color(group, selected ? QPalette::Highlight : QPalette::Base);
        const int margin = Twips(kMargin);
        QRect room = row.rect.adjusted(margin, margin, -margin, -margin);

        painter->save();
        painter->setClipRect(row.rect);
        painter->setFont(row.font);
        PaintHeading(*painter, room, row.fontMetrics, model_.HitAt(index.row()), ground, text);
        room.setTop(room.top() + row.fontMetrics.lineSpacing());
        painter->setPen(text);
        PaintSnippet(*painter, room, row.font, index.row());
        painter->restore();
    }

  private:
    static void PaintHeading(QPainter& painter, const QRect& room, const QFontMetrics& metrics,
                             const search::Hit& hit, const QColor& ground, const QColor& text) {
        const QString count = SearchModel::MatchesText(hit);
        const int count_width = metrics.horizontalAdvance(count);
        painter.setPen(QuietText(text, {ground}));
        painter.drawText(room, Qt::AlignRight | Qt::AlignTop, count);
        const int width = room.width() - count_width - 2 * Twips(kMargin);
        painter.setPen(text);
        painter.drawText(room, Qt::AlignLeft | Qt::AlignTop,
                         ElideMiddle(SearchModel::PathText(hit), metrics, width));
    }

    void PaintSnippet(QPainter& painter, const QRect& room, const QFont& font, int row) const {
        QTextLayout layout(model_.SnippetAt(row), font);
        QTextOption wrapping;
        wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(wrapping);
        QList<QTextLayout::FormatRange> bold;
        for (const auto& [begin, length] : model_.MatchesAt(row))
            bold.append({begin, length, Bold()});
        layout.setFormats(bold);
        const int end = LayOut(layout, room.width());
        if (end < layout.text().size()) {
            layout.setText(layout.text().left(std::max(0, end - 2)).trimmed() + kEllipsis);
            LayOut(layout, room.width());
        }
        layout.draw(&painter, room.topLeft());
    }

    const SearchModel& model_;
};

}  // namespace

SearchList::SearchList(SearchModel* model, QWidget* parent) : QListView(parent), model_(model) {
    setObjectName("Pages");
    setAccessibleName("Pages found");
    setModel(model);
    setItemDelegate(new PageRow(*model, this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { chosen_ = Row() > 0 ? model_->HitAt(Row()).path : std::string(); });
    connect(model, &QAbstractItemModel::modelReset, this, &SearchList::ChooseAgain);
}

void SearchList::ChooseAgain() {
    int row = model_->rowCount() - 1;
    while (row > 0 && model_->HitAt(row).path != chosen_)
        --row;
    setCurrentIndex(model_->index(row));
}

void SearchList::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    viewport()->update();  // its lines break differently now
}

void SearchList::keyboardSearch(const QString&) {
    // The box above searches for what is typed.
}

}  // namespace ui
