#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "platform/socket.h"

class QWidget;

namespace platform {
class QtEventLoop;
}

namespace ui {

class frmMain;

/// Owns the main window. A stop replaces it by a new one while handlers of the old one are still on
/// the call stack: that of the clicked button, and perhaps a scan in whose yield it was clicked. So
/// an unloaded window becomes inactive, but is destroyed only when the stack has unwound.
class WindowHolder : public QObject {
    Q_OBJECT

  public:
    struct Hooks {
        /// Shows the New Site Wizard modally over a window; not set in an unattended run.
        std::function<void(QWidget& window)> show_wizard;
        /// Creates the socket for one connection.
        std::function<std::unique_ptr<platform::Socket>()> make_socket;
    };

    /// `events` is the loop that handlers use to yield.
    WindowHolder(const platform::QtEventLoop& events, Hooks hooks);
    ~WindowHolder() override;

    /// Loads the first window and makes it the engine's. Only `Show` shows it.
    void Load();
    void Show();
    frmMain& Current() { return *current_; }

    /// Replaces the window by a new one in the same place.
    void Reload();

    /// The window has become active. If this opens the wizard, the wizard waits until no handler is
    /// running.
    void Activated();

    /// Shows the wizard unless it is open.
    void OpenWizard();

    /// Ends the program with `exit_code`, whatever is open, as if the exit question had been
    /// answered with Yes. Does nothing if it is already ending.
    void Exit(int exit_code);

    /// Lets the screen show the latest changes. Ignores keys, clicks and all events of the crawl
    /// meanwhile.
    void LetScreenCatchUp();

    /// Whether `LetScreenCatchUp` is running.
    bool IsCatchingUp() const { return catching_up_; }

    /// Creates one socket for a window.
    std::unique_ptr<platform::Socket> MakeSocket() const { return hooks_.make_socket(); }

    /// Whether no handler is on the stack below the caller: nothing is yielding and no modal dialog
    /// is open. For use in timer handlers.
    bool StackIsIdle() const;

  private:
    void OnIdleStack();
    void HandleActivation();
    void ClearActivationFlags();

    const platform::QtEventLoop& events_;
    Hooks hooks_;
    std::unique_ptr<frmMain> current_;
    std::vector<std::unique_ptr<frmMain>> unloaded_;
    bool activated_ = false;
    bool wizard_open_ = false;
    bool catching_up_ = false;
    QTimer waiting_;  ///< active while there is work for when the stack has unwound
};

}  // namespace ui
