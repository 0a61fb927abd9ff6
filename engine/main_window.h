#pragma once

#include <string>

#include "platform/socket.h"
#include "platform/timer.h"

namespace engine {

/// What the crawl needs from the main window. All text is bytes in the local 8-bit encoding. Rows,
/// sockets and timers are numbered 1 to 24.
class MainWindow {
  public:
    virtual ~MainWindow() = default;

    virtual platform::Socket& Sock(int slot) = 0;
    virtual platform::Timer& tmrOut(int slot) = 0;
    virtual platform::Timer& tmrMove() = 0;

    /// The address box.
    virtual std::string Text1() const = 0;
    virtual void SetText1(const std::string& address) = 0;
    virtual void SetText1Enabled(bool enabled) = 0;
    virtual void FocusText1() = 0;

    /// The start and stop buttons.
    virtual bool Command1Enabled() const = 0;
    virtual void SetCommand1Enabled(bool enabled) = 0;
    virtual void SetCommand2Enabled(bool enabled) = 0;

    /// The box with the number of connections, as typed.
    virtual std::string TxtMax() const = 0;
    virtual void SetTxtMax(const std::string& count) = 0;

    virtual void SetPauseEnabled(bool enabled) = 0;

    virtual void SetLabel3(const std::string& files_downloaded) = 0;
    virtual void SetLabel4(const std::string& bytes_downloaded) = 0;
    virtual void SetLabel5(const std::string& files_queued) = 0;
    virtual void SetLabel6(const std::string& status) = 0;

    /// The labels of one row: status (`l`), expected size (`k`), received (`k2`).
    virtual void SetRowStatus(int slot, const std::string& text) = 0;
    virtual void SetRowSize(int slot, const std::string& text) = 0;
    virtual void SetRowReceived(int slot, const std::string& text) = 0;

    virtual void ShowList1() = 0;

    /// Shows that placeholders are being deleted, which may take a while. Waits until this is
    /// painted and the box just answered is gone. Runs no events of the crawl.
    virtual void ShowCleaningUp() = 0;

    /// Shows the pause dialog and waits until it is closed.
    virtual void ShowPauseDialog() = 0;

    /// Unloads the window, then loads and shows a new one, which is `Window()` from then on. This
    /// object must not be used afterwards.
    virtual void Reload() = 0;
};

/// The current main window. Call this again after every place where events run, because a stop
/// replaces the window.
MainWindow& Window();

/// Whether a crawl is running, which is exactly while the start button is disabled.
bool CrawlIsRunning();

/// Sets the main window.
void SetWindow(MainWindow* window);

}  // namespace engine

namespace bas_Connections {

/// The status of a row whose connection is closed, and of all rows before the first crawl.
inline constexpr char kNotConnected[] = "Not Connected.";

/// Shows `text` as the status of row `slot`.
void SetSlotStatus(int slot, const std::string& text);

/// Makes row `slot` look unconnected. Changes no slot field and no socket.
void ResetSlotRow(int slot);

}  // namespace bas_Connections
