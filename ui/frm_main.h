#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <memory>

#include "crawl/crawl_state.h"
#include "engine/main_window.h"
#include "platform/qt/qt_timer.h"
#include "text/one_based.h"
#include "ui/activity_light.h"
#include "ui/address_list.h"
#include "ui/connection_panel.h"
#include "ui/crawl_summary.h"
#include "ui/progress_strip.h"
#include "widgets/choice_box.h"
#include "widgets/elided_label.h"

class QDialog;

namespace ui {

class AddressLine;
class WindowHolder;

/// The main window: the download monitor. It shows what the crawl writes to it, and turns clicks
/// and keys into calls of the crawl's procedures.
///
/// Any of those procedures may stop the crawl. This window is then unloaded, and another one is
/// `engine::Window()`. The object itself lives until its handlers have returned.
class frmMain : public QMainWindow, public engine::MainWindow {
    Q_OBJECT

  public:
    explicit frmMain(WindowHolder& holder);
    ~frmMain() override;

    /// Fills the controls. The window must already be the engine's.
    void Form_Load();

    /// Sets the size of a window that has not been shown yet, as far as the screen has room.
    void PlaceOnScreen();

    /// Unloads the window: its events no longer reach the crawl.
    void Retire();
    bool IsRetired() const { return retired_; }

    /// Stops and cleans up a running crawl without asking, and ends the program with `exit_code`.
    void Leave(int exit_code);

    /// Does the same as choosing N from the list of `txtMax`.
    void ChooseConnections(int count);

    /// Whether the next activation opens the New Site Wizard.
    bool ShowWizardOnActivate = false;

    platform::Socket& Sock(int slot) override { return *sockets_[slot]; }
    platform::QtTimer& tmrOut(int slot) override { return timeouts_[slot]; }
    platform::QtTimer& tmrMove() override { return move_timer_; }
    std::string Text1() const override;
    void SetText1(const std::string& address) override;
    void SetText1Enabled(bool enabled) override;
    void FocusText1() override;
    bool Command1Enabled() const override { return command1_->isEnabled(); }
    void SetCommand1Enabled(bool enabled) override;
    void SetCommand2Enabled(bool enabled) override;
    std::string TxtMax() const override;
    void SetTxtMax(const std::string& count) override;
    void SetPauseEnabled(bool enabled) override;
    void SetLabel3(const std::string& files_downloaded) override;
    void SetLabel4(const std::string& bytes_downloaded) override;
    void SetLabel5(const std::string& files_queued) override;
    void SetLabel6(const std::string& status) override;
    void SetRowStatus(int slot, const std::string& text) override;
    void SetRowSize(int slot, const std::string& text) override;
    void SetRowReceived(int slot, const std::string& text) override;
    void ShowList1() override;
    void ShowCleaningUp() override;
    void ShowPauseDialog() override;
    void Reload() override;

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // frm_main_controls.cpp
    void MakeControls();
    void MakeButtons();
    void MakeLabels();
    void MakeLists();
    void MakeMenu();
    void MakeConnections();
    QAction* MakeEntry(QMenu* menu, const char* name, const QString& caption,
                       const QKeySequence& keys);

    // frm_main_layout.cpp
    void PlaceFixedControls();
    void FitPanel(int height);
    void Form_Resize();
    void HideWhatDoesNotFit();
    void PlaceOtherLinksButton();
    void PlaceAddressLine();

    // frm_main_commands.cpp
    void ConnectHandlers();
    void ConnectControls();
    void ConnectMenu();
    void ConnectCrawl();
    void ExploreTarget();
    void OpenCopy();
    static void OpenAddress(std::string address);
    void SuggestFilter(const std::string& address);
    static void AddTypes(const std::vector<std::string>& types);
    void Start();
    void mnunew_Click();
    void mnuabout_Click();
    void ShowOtherLinks(bool other_links);
    void JudgeAddress();
    void ListChanged();

    /// Moves the focus away from the controls that a crawl is about to disable or hide.
    void LeaveStart();

    // frm_main_progress.cpp
    void CrawlBegins();
    void CrawlEnds();
    void ShowProgress();
    void OfferCopy();
    static std::string ShownFolder();

    bool CatchingUp() const;

    /// Wraps `handler` for every connection: it does nothing in an unloaded window, nor while the
    /// screen catches up.
    template <typename Handler>
    auto WhileLoaded(Handler handler) {
        return [this, handler] {
            if (!retired_ && !CatchingUp()) handler();
        };
    }
    template <typename Sender, typename Signal, typename Handler>
    void On(Sender* sender, Signal signal, Handler handler) {
        connect(sender, signal, this, WhileLoaded(handler));
    }

    WindowHolder& holder_;
    bool retired_ = false;
    bool asking_exit_ = false;
    bool paused_ = false;

    text::OneBased<std::unique_ptr<platform::Socket>, crawl::kSlotCount> sockets_;
    text::OneBased<platform::QtTimer, crawl::kSlotCount> timeouts_;
    platform::QtTimer move_timer_;
    CrawlReporter reporter_{crawl::Report};
    QTimer rate_timer_;
    QTimer progress_timer_;  ///< active while a crawl is running

    QWidget* client_;  ///< the area below the menu, which contains all controls
    QLineEdit* text1_;
    AddressLine* address_line_;  ///< what the crawl will request
    QPushButton* command1_;
    QPushButton* command2_;
    QPushButton* command3_;
    QPushButton* command4_;
    QPushButton* open_copy_;
    QPushButton* search_;
    ChoiceBox* txt_max_;
    QLabel* label1_;
    QLabel* label2_;
    QLabel* label3_;
    QLabel* label4_;
    QLabel* label5_;
    ElidedLabel* label6_;
    ElidedLabel* label7_;
    QLabel* label8_;
    QLabel* label9_;
    QLabel* list2_heading_;
    ElidedLabel* next_;  ///< the queued address that is fetched next
    ConnectionPanel* picture1_;
    ActivityLight* picture2_;
    ProgressStrip* progress_;
    AddressList* list1_;
    AddressList* list2_;
    QToolButton* other_links_;  ///< switches between `List1` and `List2`
    QAction* mnunew_;
    QAction* mnuexit_;
    QAction* mnupause_;
    QAction* mnuexplore_;
    QAction* mnupref_;
    QAction* mnuabout_;
    QPointer<QWidget> filters_;
    QPointer<QWidget> report_;
    QPointer<QWidget> search_dialog_;
    QPointer<QDialog> pause_dialog_;
};

}  // namespace ui
