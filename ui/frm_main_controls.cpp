#include <QMenuBar>
#include <QVBoxLayout>

#include "engine/main_window.h"
#include "forms/address_completer.h"
#include "forms/address_line.h"
#include "ui/frm_main.h"
#include "ui/version.h"
#include "ui/window_holder.h"
#include "widgets/address_box.h"
#include "widgets/app_icon.h"
#include "widgets/controls.h"
#include "widgets/icons.h"
#include "widgets/label_font.h"
#include "widgets/link_drop.h"
#include "widgets/readable.h"
#include "widgets/twips.h"

/// Creates the main window's controls, menu, sockets and timers.
namespace ui {

namespace {
constexpr std::int64_t kTickMilliseconds = 20;
constexpr std::int64_t kFirstTimeoutMilliseconds = 20000;
}  // namespace

void frmMain::MakeControls() {
    setWindowTitle(kNameAndVersion);
    setWindowIcon(AppIcon());
    auto* whole = new QWidget(this);
    client_ = new QWidget(whole);
    client_->setObjectName("Client");
    client_->setFont(LabelFont());
    progress_ = new ProgressStrip(whole);
    auto* column = new QVBoxLayout(whole);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(client_, 1);
    column->addWidget(progress_);
    setCentralWidget(whole);
    layout()->setSizeConstraint(QLayout::SetNoConstraint);  // no minimum size

    picture1_ = new ConnectionPanel(client_);
    picture1_->setObjectName("Picture1");
    picture2_ = new ActivityLight(client_);
    picture2_->setObjectName("Picture2");
    text1_ = new AddressBox("Text1", client_);
    text1_->setPlaceholderText("www.example.com");
    text1_->setAccessibleName("Address of the web site");
    address_line_ = new AddressLine("Text1Hint", text1_, client_);
    txt_max_ = new ChoiceBox("txtMax", "How many connections?", client_);
    txt_max_->MakeEditable();

    MakeButtons();
    MakeLabels();
    MakeLists();
    MakeMenu();
    MakeConnections();
    new AddressCompleter(text1_);
    new LinkDrop(this, text1_);
    SetTabOrder({text1_, address_line_->Link(), command1_, command2_, command3_, command4_,
                 open_copy_, search_, txt_max_, picture1_, other_links_, list1_, list2_,
                 &progress_->CopyButton(), &progress_->ReportButton()});
}

void frmMain::MakeButtons() {
    command1_ =
        MakeIconButton("Command1", Picture::Start, "Start downloading the web site", client_);
    command2_ = MakeIconButton("Command2", Picture::Stop, "Stop downloading", client_);
    command3_ = MakeIconButton("Command3", Picture::Filters, "Keyword filters", client_);
    command4_ = MakeIconButton("Command4", Picture::Explore, "Explore the target folder", client_);
    open_copy_ = MakeIconButton("OpenCopy", Picture::OpenCopy,
                                "Open the start page of the copy (Ctrl+Shift+O)", client_);
    search_ = MakeIconButton("Search", Picture::Search, "Search the copy (Ctrl+F)", client_);
    command2_->setEnabled(false);
    open_copy_->setEnabled(false);
}

void frmMain::MakeLabels() {
    label1_ = MakeLabel("Label1", "Queued", client_);
    label2_ = MakeLabel("Label2", "Downloaded", client_);
    label3_ = MakeLabel("Label3", "0 Files", client_);
    label4_ = MakeLabel("Label4", "0 Bytes", client_);
    label5_ = MakeLabel("Label5", "0 Files", client_);
    label6_ = new ElidedLabel("Label6", bas_Connections::kNotConnected, client_);
    label7_ = new ElidedLabel("Label7", "1 to 24", client_);
    label7_->SetQuiet(true);
    label8_ = MakeLabel("Label8", "Queued Files", client_);
    label9_ = MakeLabel("Label9", txt_max_->accessibleName(), client_);
    list2_heading_ = MakeLabel("List2Heading", "Other Links on the Site", client_);
    next_ = new ElidedLabel("Next", "", client_);
    next_->SetQuiet(true);
    label9_->setBuddy(txt_max_);
}

void frmMain::MakeLists() {
    list1_ = new AddressList(crawl::List1, AddressList::Shows::End, client_);
    list1_->setObjectName("List1");
    list1_->setAccessibleName(label8_->text());
    list2_ = new AddressList(crawl::List2, AddressList::Shows::Beginning, client_);
    list2_->setObjectName("List2");
    list2_->setAccessibleName(list2_heading_->text());
    list2_->OfferTypes();
    list2_->setToolTip("Links on the site whose file type is not wanted");
    other_links_ = new QToolButton(client_);
    other_links_->setObjectName("OtherLinks");
    other_links_->setFocusPolicy(Qt::StrongFocus);
    other_links_->setToolTip(list2_->toolTip());
    ShowOtherLinks(false);
}

void frmMain::MakeMenu() {
    QMenu* mnufile = menuBar()->addMenu("&File");
    mnunew_ = MakeEntry(mnufile, "mnunew", "&New Site", Qt::CTRL | Qt::Key_N);
    mnufile->addSeparator();
    mnuexit_ = MakeEntry(mnufile, "mnuexit", "&Exit Vantorin", Qt::CTRL | Qt::Key_Q);

    QMenu* mnusites = menuBar()->addMenu("&Sites");
    mnupause_ = MakeEntry(mnusites, "mnupause", "Pause Download", Qt::CTRL | Qt::Key_P);
    mnupause_->setEnabled(false);
    KeepReadable(mnusites, QPalette::Window);
    mnusites->addSeparator();
    mnuexplore_ = MakeEntry(mnusites, "mnuexplore", "&Explore...", Qt::CTRL | Qt::Key_O);
    mnusites->addSeparator();
    mnupref_ = MakeEntry(mnusites, "mnupref", "&Preferences...", Qt::CTRL | Qt::Key_Comma);

    QMenu* mnuhelp = menuBar()->addMenu("&Help");
    mnuabout_ = MakeEntry(mnuhelp, "mnuabout", "&About", Qt::Key_F1);

    menuBar()->ensurePolished();
    menuBar()->setFixedHeight(OnPixelGrid(menuBar()->sizeHint().height()));
}

QAction* frmMain::MakeEntry(QMenu* menu, const char* name, const QString& caption,
                            const QKeySequence& keys) {
    QAction* entry = menu->addAction(caption);
    entry->setObjectName(name);
    entry->setShortcut(keys);
    // Keep desktops from moving the entry to another menu because of its caption.
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

}  // namespace ui
