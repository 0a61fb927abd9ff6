#include <QMenuBar>

#include "ui/frm_main.h"
#include "ui/version.h"
#include "ui/window_holder.h"
#include "widgets/address_box.h"
#include "widgets/label_font.h"

/// The main window's controls, menu, sockets and timers as they are when it is designed.
namespace ui {

namespace {
constexpr int kIconSide = 16;
constexpr std::int64_t kTickMilliseconds = 20;
constexpr std::int64_t kFirstTimeoutMilliseconds = 20000;
}  // namespace

void frmMain::MakeControls() {
    setWindowTitle(kNameAndVersion);
    setWindowIcon(ButtonIcon(Picture::Explore));
    client_ = new QWidget(this);
    client_->setFont(LabelFont());
    setCentralWidget(client_);

    picture1_ = new ConnectionPanel(client_);
    picture1_->setObjectName("Picture1");
    picture2_ = new ActivityLight(client_);
    picture2_->setObjectName("Picture2");
    text1_ = new AddressBox(client_);
    text1_->setObjectName("Text1");
    text1_->setPlaceholderText("www.example.com");
    text1_->setAccessibleName(tr("Address of the web site"));
    txt_max_ = new QComboBox(client_);
    txt_max_->setObjectName("txtMax");
    txt_max_->setEditable(true);
    txt_max_->setInsertPolicy(QComboBox::NoInsert);
    txt_max_->setCompleter(nullptr);

    MakeButtons();
    MakeLabels();
    MakeLists();
    MakeMenu();
    MakeConnections();
    SetTabOrder();
}

void frmMain::MakeButtons() {
    command1_ = MakeButton("Command1", Picture::Start, tr("Start downloading the web site"));
    command2_ = MakeButton("Command2", Picture::Stop, tr("Stop downloading"));
    command3_ = MakeButton("Command3", Picture::Filters, tr("Keyword filters"));
    command4_ = MakeButton("Command4", Picture::Explore, tr("Explore the target folder"));
    command2_->setEnabled(false);
}

QPushButton* frmMain::MakeButton(const char* name, Picture picture, const QString& what) {
    auto* button = new QPushButton(client_);
    button->setObjectName(name);
    button->setIcon(ButtonIcon(picture));
    button->setIconSize({kIconSide, kIconSide});
    button->setToolTip(what);
    button->setAccessibleName(what);
    return button;
}

void frmMain::MakeLabels() {
    label1_ = MakeLabel("Label1", "Queued");
    label2_ = MakeLabel("Label2", "Downloaded");
    label3_ = MakeLabel("Label3", "0 Files");
    label4_ = MakeLabel("Label4", "0 Bytes");
    label5_ = MakeLabel("Label5", "0 Files");
    label6_ = new ElidedLabel(client_);
    label6_->setObjectName("Label6");
    label6_->setText("Not Connected.");
    label7_ = MakeLabel("Label7", "1 to 24");
    label8_ = MakeLabel("Label8", "Queued Files");
    label9_ = MakeLabel("Label9", "How many connections?");
    list2_heading_ = MakeLabel("List2Heading", tr("Other Links on the Site"));
    label7_->setForegroundRole(QPalette::PlaceholderText);
    label9_->setBuddy(txt_max_);
    txt_max_->setAccessibleName(label9_->text());
}

QLabel* frmMain::MakeLabel(const char* name, const QString& caption) {
    auto* label = new QLabel(caption, client_);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void frmMain::MakeLists() {
    list1_ = new AddressList(crawl::List1, client_);
    list1_->setObjectName("List1");
    list1_->setAccessibleName(label8_->text());
    list2_ = new AddressList(crawl::List2, client_);
    list2_->setObjectName("List2");
    list2_->setAccessibleName(list2_heading_->text());
    list2_->setToolTip(tr("Links on the site whose file type is not wanted"));
    other_links_ = new QToolButton(client_);
    other_links_->setObjectName("OtherLinks");
    other_links_->setFocusPolicy(Qt::StrongFocus);
    other_links_->setToolTip(list2_->toolTip());
    ShowOtherLinks(false);
}

void frmMain::MakeMenu() {
    QMenu* mnufile = menuBar()->addMenu("&File");
    mnunew_ = MakeEntry(mnufile, "mnunew", "&New Site");
    mnufile->addSeparator();
    mnuexit_ = MakeEntry(mnufile, "mnuexit", "&Exit Vantorin");

    QMenu* mnusites = menuBar()->addMenu("&Sites");
    mnupause_ = MakeEntry(mnusites, "mnupause", "Pause Download");
    mnupause_->setEnabled(false);
    mnusites->addSeparator();
    mnuexplore_ = MakeEntry(mnusites, "mnuexplore", "&Explore...");
    mnusites->addSeparator();
    mnupref_ = MakeEntry(mnusites, "mnupref", "&Preferences...");

    QMenu* mnuhelp = menuBar()->addMenu("&Help");
    mnuabout_ = MakeEntry(mnuhelp, "mnuabout", "&About");
}

QAction* frmMain::MakeEntry(QMenu* menu, const char* name, const QString& caption) {
    QAction* entry = menu->addAction(caption);
    entry->setObjectName(name);
    // The caption alone must not make a desktop move the entry to another menu.
    entry->setMenuRole(QAction::NoRole);
    return entry;
}

void frmMain::MakeConnections() {
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        sockets_[i] = holder_.MakeSocket();
        timeouts_[i].SetInterval(kFirstTimeoutMilliseconds);
    }
    move_timer_.SetInterval(kTickMilliseconds);
}

void frmMain::SetTabOrder() {
    QWidget* const order[] = {text1_,   command1_, command2_,    command3_, command4_,
                              txt_max_, picture1_, other_links_, list1_,    list2_};
    for (std::size_t i = 1; i < std::size(order); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

}  // namespace ui
