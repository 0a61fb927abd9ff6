#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>

#include "forms/address_line.h"
#include "ui/frm_main.h"
#include "widgets/controls.h"
#include "widgets/twips.h"

/// The main window's layout: arranges the client area below the menu, in twips.
namespace ui {

namespace {

// Lengths above the connection panel, between it and the queue, and of the queue itself.
constexpr int kEdge = 180;
constexpr int kButton = 420;
constexpr int kPanelLeft = 240;
constexpr int kPanelTop = 1800;
constexpr int kListAfterPanel = 540;
constexpr int kNextAfterHeading = 1650;
constexpr int kQueueRoom = 1500;

constexpr int kOpeningWidth = 12300;
constexpr int kOpeningQueue = 2250;

/// The height of everything but the panel and the queue.
constexpr int kAroundPanelAndQueue = 2280 + 480;

/// Ignores negative widths, which a control would refuse.
void SetWidth(QWidget* control, int twips) {
    if (twips >= 0) control->resize(Twips(twips), control->height());
}

void SetHeight(QWidget* control, int twips) {
    if (twips >= 0) control->resize(control->width(), Twips(twips));
}

void SetLeft(QWidget* control, int twips) {
    control->move(Twips(twips), control->y());
}

void SetTop(QWidget* control, int twips) {
    control->move(control->x(), Twips(twips));
}

int Left(const QWidget* control) {
    return InTwips(control->x());
}
int Top(const QWidget* control) {
    return InTwips(control->y());
}
int Width(const QWidget* control) {
    return InTwips(control->width());
}
int Height(const QWidget* control) {
    return InTwips(control->height());
}

}  // namespace

void frmMain::PlaceFixedControls() {
    constexpr int kSecondColumn = kEdge + kButton + 60;
    constexpr int kSecondRow = 780;
    PlaceTwips(command1_, kEdge, 210, kButton, kButton);
    PlaceTwips(command2_, kSecondColumn, 210, kButton, kButton);
    PlaceTwips(command3_, kEdge, kSecondRow, kButton, kButton);
    PlaceTwips(command4_, kSecondColumn, kSecondRow, kButton, kButton);
    PlaceTwips(open_copy_, kSecondColumn + kButton + 60, kSecondRow, kButton, kButton);
    PlaceTwips(search_, kSecondColumn + 2 * (kButton + 60), kSecondRow, kButton, kButton);
    PlaceTwips(text1_, 1140, 210, 6000, kButton);
    PlaceTwips(picture2_, 7260, 210, kButton, kButton);
    PlaceTwips(txt_max_, 0, kSecondRow, 930, kButton);
    label9_->adjustSize();
    PlaceTwips(label9_, 0, kSecondRow, Width(label9_), kButton);

    constexpr int kCounterRow = 1365;
    PlaceTwips(label2_, kEdge, kCounterRow, 1200, 270);
    PlaceTwips(label3_, kEdge + 1200, kCounterRow, 1350, 270);
    PlaceTwips(label4_, kEdge + 2550, kCounterRow, 2100, 270);
    PlaceTwips(label1_, kEdge + 4650, kCounterRow, 840, 270);
    PlaceTwips(label5_, kEdge + 5490, kCounterRow, 1800, 270);
    PlaceTwips(label7_, 0, kCounterRow, 930, 270);

    PlaceTwips(picture1_, kPanelLeft, kPanelTop, kOpeningWidth, 0);
    picture1_->move(picture1_->x(), OnPixelGrid(picture1_->y()));
    PlaceTwips(label8_, kEdge, 0, kNextAfterHeading, 300);
    PlaceTwips(list2_heading_, kEdge, 0, 3000, 300);
    PlaceTwips(next_, kEdge + kNextAfterHeading, 0, 3000, 300);
    for (QWidget* list : {list1_, list2_})
        PlaceTwips(list, kEdge, 0, kOpeningWidth, kQueueRoom);
    PlaceTwips(label6_, kEdge, 0, kOpeningWidth, 270);
}

void frmMain::FitPanel(int height) {
    // Show all rows if there is room for them and for some of the queue; otherwise as many as fit,
    // and they scroll. The panel does not shrink below a few rows.
    const int room = Twips(height - kAroundPanelAndQueue - kQueueRoom);
    const int panel = std::clamp(room, picture1_->LeastHeight(), picture1_->FullHeight());
    picture1_->resize(picture1_->width(), OnPixelGrid(panel));
    const int list_top = picture1_->y() + picture1_->height() + OnPixelGrid(Twips(kListAfterPanel));
    for (QWidget* list : {list1_, list2_})
        list->move(list->x(), list_top);
    for (QWidget* heading : std::initializer_list<QWidget*>{label8_, list2_heading_, next_})
        heading->move(heading->x(), list_top - Twips(330));
    other_links_->move(other_links_->x(), list_top - Twips(390));
}

void frmMain::Form_Resize() {
    const int w = InTwips(client_->width());
    const int h = InTwips(client_->height());
    FitPanel(h);

    SetWidth(picture1_, w - 360 - 120);
    SetWidth(list1_, w - 360);
    SetLeft(txt_max_, w - Width(txt_max_) - 360);
    SetLeft(label9_, Left(txt_max_) - 120 - Width(label9_));
    SetLeft(label7_, Left(txt_max_));
    SetHeight(list1_, h - 2280 - Height(picture1_) - 480);
    SetWidth(text1_, w - Width(picture2_) - 1440);
    SetLeft(picture2_, Left(text1_) + Width(text1_) + 120);
    SetTop(label6_, Top(list1_) + Height(list1_) + 40);
    SetLeft(&picture1_->Picture3(), Width(picture1_) - Width(&picture1_->Picture3()));

    list2_->setGeometry(list1_->geometry());
    SetWidth(label6_, w - 360);
    HideWhatDoesNotFit();
    PlaceOtherLinksButton();
    PlaceAddressLine();
}

void frmMain::HideWhatDoesNotFit() {
    // A number that is cut in half reads as another one.
    for (QLabel* counter : {label3_, label4_, label5_}) {
        counter->setVisible(counter->x() + counter->sizeHint().width() <= client_->width());
    }
    for (QPushButton* button : {open_copy_, search_}) {
        button->setVisible(button->geometry().right() < txt_max_->x());
    }
    label1_->setVisible(!label5_->isHidden());
    label7_->setVisible(label7_->x() > label5_->geometry().right());
    label9_->setVisible(label9_->x() > search_->geometry().right());
}

void frmMain::PlaceOtherLinksButton() {
    other_links_->adjustSize();
    SetLeft(other_links_, Left(list1_) + Width(list1_) - Width(other_links_));
    next_->resize(std::max(0, other_links_->x() - next_->x() - Twips(120)), next_->height());
}

void frmMain::PlaceAddressLine() {
    // Below the address, as far as the buttons and the number of connections leave room.
    constexpr int kGap = 120;
    const int left = InTwips(search_->geometry().right()) + kGap;
    const int right = Left(label9_->isHidden() ? static_cast<QWidget*>(txt_max_) : label9_) - kGap;
    PlaceTwips(address_line_, left, Top(text1_) + Height(text1_) + 30, std::max(0, right - left),
               225);
    JudgeAddress();
}

void frmMain::PlaceOnScreen() {
    const int wanted = Twips(kAroundPanelAndQueue + kOpeningQueue) + picture1_->FullHeight() +
                       menuBar()->height() + progress_->sizeHint().height();
    // The size of the window's frame is not known yet.
    constexpr int kFrame = 40;
    const QSize room = screen()->availableGeometry().size() - QSize(0, kFrame);
    resize(QSize(Twips(kOpeningWidth), wanted).boundedTo(room));
    // If the desktop chose the position, it would not be known yet when the wizard is placed over
    // the window.
    QRect place({0, 0}, size());
    place.moveCenter(screen()->availableGeometry().center());
    move(place.topLeft() - QPoint(0, kFrame / 2));
}

}  // namespace ui
