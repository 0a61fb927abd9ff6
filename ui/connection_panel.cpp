#include "ui/connection_panel.h"

#include <QPainter>
#include <QScrollBar>

#include "engine/main_window.h"
#include "platform/qt/local_text.h"
#include "widgets/contrast.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

namespace {

// Lengths in twips.
constexpr int kHeader = 540;
constexpr int kMargin = 90;
constexpr int kNumberWidth = 360;
constexpr int kReceivedWidth = 1260;
constexpr int kStatusLeft = kMargin + kNumberWidth + kReceivedWidth + 3 * kMargin;
constexpr int kGraphWidth = 2250;
constexpr int kHeadingWidth = 1800;
/// In a narrower panel the headings need the graph's room.
constexpr int kLeastWidthForGraph = 6300;

constexpr int kLeastRows = 4;

int RowHeight() {
    return QFontMetrics(LabelFont()).height() + 1;
}

/// Paints every second row in another colour.
class RowsWidget : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const int height = RowHeight();
        const QColor stripe = Stripe(palette());
        for (int row = 1; row < crawl::kSlotCount; row += 2)
            painter.fillRect(0, row * height, width(), height, stripe);
    }
};

/// Whether a row with this status belongs to an idle connection.
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
    picture3_->setGeometry(0, Twips(30), Twips(kGraphWidth), Twips(kHeader - 90));
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller_->setAccessibleName(connections_heading_->text());
    rows_widget_ = new RowsWidget;
    rows_widget_->setBackgroundRole(QPalette::Base);
    rows_widget_->setForegroundRole(QPalette::Text);
    rows_widget_->setAutoFillBackground(true);
    MakeRows();
    scroller_->setWidget(rows_widget_);
}

void ConnectionPanel::MakeRows() {
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        Row& row = rows_[i];
        const QByteArray number = QByteArray::number(i);
        row.x = new ElidedLabel("x" + number, number, rows_widget_);
        row.l = new ElidedLabel("l" + number, "", rows_widget_);
        row.k = new ElidedLabel("k" + number, "", rows_widget_);
        row.k2 = new ElidedLabel("k2" + number, "", rows_widget_);
        row.x->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.k2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.x->SetQuiet(true);
        row.k->hide();
        SetStatus(i, bas_Connections::kNotConnected);
    }
}

int ConnectionPanel::FullHeight() const {
    return OnPixelGrid(Twips(kHeader) + crawl::kSlotCount * RowHeight() + 2 * frameWidth() + 1);
}

int ConnectionPanel::LeastHeight() const {
    return OnPixelGrid(Twips(kHeader) + kLeastRows * RowHeight() + 2 * frameWidth() + 1);
}

void ConnectionPanel::SetStatus(int row, const std::string& text) {
    const QString shown = platform::FromBytes(text);
    if (rows_[row].l->text() == shown) return;
    rows_[row].l->setText(shown);
    rows_[row].l->SetQuiet(IsIdle(text));
    Describe(row);
}

void ConnectionPanel::SetSize(int row, const std::string& text) {
    rows_[row].k->setText(platform::FromBytes(text));
}

void ConnectionPanel::SetReceived(int row, const std::string& text) {
    rows_[row].k2->setText(platform::FromBytes(text));
    rows_[row].k2->SetQuiet(text == "-");
    Describe(row);
}

void ConnectionPanel::Describe(int row) {
    QString sentence = QString("Connection %1: %2").arg(row).arg(rows_[row].l->text());
    if (!rows_[row].k2->text().isEmpty()) sentence += ", " + rows_[row].k2->text();
    rows_[row].l->setAccessibleName(sentence);
}

void ConnectionPanel::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    const QRect inside = contentsRect();
    const int header = Twips(kHeader);
    const int heading_height = header - Twips(60);
    data_in_heading_->setGeometry(inside.left(), inside.top(), Twips(kStatusLeft - 2 * kMargin),
                                  heading_height);
    connections_heading_->setGeometry(inside.left() + Twips(kStatusLeft), inside.top(),
                                      Twips(kHeadingWidth), heading_height);
    picture3_->setVisible(width() >= Twips(kLeastWidthForGraph));
    // Leave a pixel for the frame on each side, because at 150 % the frame is wider than one.
    scroller_->setGeometry(inside.left() + 1, inside.top() + header, inside.width() - 2,
                           std::max(0, inside.height() - header - 1));
    PlaceRows();
}

void ConnectionPanel::PlaceRows() {
    const int rows_height = crawl::kSlotCount * RowHeight();
    const bool scrolls = scroller_->height() < rows_height;
    // The Tab key stops here only if the rows scroll.
    scroller_->setFocusPolicy(scrolls ? Qt::TabFocus : Qt::NoFocus);
    const int bar = scrolls ? scroller_->verticalScrollBar()->sizeHint().width() : 0;
    const int width = std::max(0, scroller_->width() - bar);
    rows_widget_->resize(width, std::max(rows_height, scroller_->height()));
    const int left = Twips(kStatusLeft);
    const int status_width = std::max(0, width - left - Twips(kMargin));
    const int height = RowHeight();
    int top = 0;
    for (Row& row : rows_) {
        row.l->setGeometry(left, top, status_width, height);
        row.x->setGeometry(Twips(kMargin), top, Twips(kNumberWidth), height);
        row.k->setGeometry(left, top, status_width, height);
        row.k2->setGeometry(Twips(kMargin + kNumberWidth), top, Twips(kReceivedWidth + kMargin),
                            height);
        top = row.l->y() + row.l->height();
    }
}

}  // namespace ui
