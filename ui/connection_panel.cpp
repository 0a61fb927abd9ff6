#include "ui/connection_panel.h"

#include <QPainter>
#include <QScrollBar>

#include "engine/rows.h"
#include "platform/qt/local_text.h"
#include "widgets/label_font.h"

namespace ui {

namespace {

constexpr int kHeader = 36;
constexpr int kLeastRows = 4;
constexpr int kMargin = 6;
constexpr int kNumberWidth = 24;
constexpr int kReceivedWidth = 84;
constexpr int kStatusLeft = kMargin + kNumberWidth + kReceivedWidth + 3 * kMargin;
constexpr int kGraphWidth = 150;
/// In a panel narrower than this the headings need the graph's room.
constexpr int kLeastWidthForGraph = 420;

int RowHeight() {
    return QFontMetrics(LabelFont()).height() + 1;
}

/// Paints every second row in the list's other colour, so that the eye keeps the line.
class RowsWidget : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (int row = 1; row < crawl::kSlotCount; row += 2) {
            painter.fillRect(0, row * RowHeight(), width(), RowHeight(), palette().alternateBase());
        }
    }
};

/// What only fills a row is paler than what a download says in it.
void ShowQuietly(QLabel* label, bool quiet) {
    label->setForegroundRole(quiet ? QPalette::PlaceholderText : QPalette::Text);
}

/// Whether a row of this status has nothing to say.
bool IsIdle(const std::string& status) {
    return status == bas_Connections::kNotConnected;
}

}  // namespace

ConnectionPanel::ConnectionPanel(QWidget* parent)
    : QFrame(parent),
      connections_heading_(new QLabel("Connections", this)),
      data_in_heading_(new QLabel("Data In", this)),
      picture3_(new RateGraph(this)),
      scroller_(new QScrollArea(this)) {
    setFont(LabelFont());
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    connections_heading_->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    data_in_heading_->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    picture3_->setObjectName("Picture3");
    picture3_->resize(kGraphWidth, kHeader - 6);
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller_->setAccessibleName(connections_heading_->text());
    rows_widget_ = new RowsWidget;
    rows_widget_->setBackgroundRole(QPalette::Base);
    rows_widget_->setAutoFillBackground(true);
    MakeRows();
    scroller_->setWidget(rows_widget_);
}

void ConnectionPanel::MakeRows() {
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        Row& row = rows_[i];
        row.x = new QLabel(QString::number(i), rows_widget_);
        row.l = new ElidedLabel(rows_widget_);
        row.k = new QLabel(rows_widget_);
        row.k2 = new QLabel(rows_widget_);
        row.x->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.k2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        ShowQuietly(row.x, true);
        for (QLabel* label : {row.k, row.k2})
            label->setTextFormat(Qt::PlainText);
        row.k->hide();
        row.l->setObjectName(QString("l%1").arg(i));
        row.k2->setObjectName(QString("k2%1").arg(i));
        SetStatus(i, bas_Connections::kNotConnected);
    }
}

int ConnectionPanel::FullHeight() const {
    return kHeader + crawl::kSlotCount * RowHeight() + 2 * frameWidth();
}

int ConnectionPanel::LeastHeight() const {
    return kHeader + kLeastRows * RowHeight() + 2 * frameWidth();
}

void ConnectionPanel::SetStatus(int row, const std::string& text) {
    const QString shown = platform::FromBytes(text);
    if (rows_[row].l->text() == shown) return;
    rows_[row].l->setText(shown);
    ShowQuietly(rows_[row].l, IsIdle(text));
}

void ConnectionPanel::SetSize(int row, const std::string& text) {
    rows_[row].k->setText(platform::FromBytes(text));
}

void ConnectionPanel::SetReceived(int row, const std::string& text) {
    rows_[row].k2->setText(platform::FromBytes(text));
    ShowQuietly(rows_[row].k2, text == "-");
}

void ConnectionPanel::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    const QRect inside = contentsRect();
    const int heading_height = kHeader - 4;
    data_in_heading_->setGeometry(inside.left(), inside.top(), kStatusLeft - 2 * kMargin,
                                  heading_height);
    connections_heading_->setGeometry(inside.left() + kStatusLeft, inside.top(), 120,
                                      heading_height);
    picture3_->setVisible(width() >= kLeastWidthForGraph);
    scroller_->setGeometry(inside.left(), inside.top() + kHeader, inside.width(),
                           std::max(0, inside.height() - kHeader));
    PlaceRows();
}

void ConnectionPanel::PlaceRows() {
    const int rows_height = crawl::kSlotCount * RowHeight();
    const bool scrolls = scroller_->height() < rows_height;
    // Only what scrolls is worth a stop of the Tab key.
    scroller_->setFocusPolicy(scrolls ? Qt::TabFocus : Qt::NoFocus);
    const int bar = scrolls ? scroller_->verticalScrollBar()->sizeHint().width() : 0;
    const int width = std::max(0, scroller_->width() - bar);
    rows_widget_->resize(width, rows_height);
    const int status_width = std::max(0, width - kStatusLeft - kMargin);
    int top = 0;
    for (Row& row : rows_) {
        row.l->setGeometry(kStatusLeft, top, status_width, RowHeight());
        row.x->setGeometry(kMargin, top, kNumberWidth, RowHeight());
        row.k->setGeometry(kStatusLeft, top, status_width, RowHeight());
        row.k2->setGeometry(kMargin + kNumberWidth, top, kReceivedWidth + kMargin, RowHeight());
        top = row.l->y() + row.l->height();
    }
}

}  // namespace ui
