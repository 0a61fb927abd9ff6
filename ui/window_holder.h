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

/// Owns the main window. A stop replaces it by a fresh one while handlers of the old one are still
/// on the call stack: the button that was clicked, perhaps a scan in whose yield it was clicked. So
/// an unloaded window does nothing more, but is destroyed only when the stack has unwound.
class WindowHolder : public QObject {
    Q_OBJECT

  public:
    struct Hooks {
        /// Shows the New Site Wizard modally over a window; none in an unattended run.
        std::function<void(QWidget& window)> show_wizard;
        /// Makes one connection's socket.
        std::function<std::unique_ptr<platform::Socket>()> make_socket;
    };

    /// `events` is the loop by which handlers yield.
    WindowHolder(const platform::QtEventLoop& events, Hooks hooks);
    ~WindowHolder() override;

    /// Loads the first window and makes it the engine's. It is shown only by `Show`.
    void Load();
    void Show();
    frmMain& Current() { return *current_; }

    /// Replaces the window by a fresh one in the same place.
    void Reload();

    /// The window became active. The wizard that this may open waits until no handler is running.
    void Activated();

    /// Shows the wizard unless one is open.
    void OpenWizard();

    /// Ends the program with `exit_code` as if the exit question had been answered with Yes,
    /// whatever is open. Nothing when it is ending already.
    void Exit(int exit_code);

    /// Lets the screen show what has changed. No key, no click and nothing of the crawl is heeded
    /// meanwhile.
    void LetScreenCatchUp();

    /// Whether that is so right now.
    bool IsCatchingUp() const { return catching_up_; }

    /// Makes one socket for a window.
    std::unique_ptr<platform::Socket> MakeSocket() const { return hooks_.make_socket(); }

    /// Whether no handler is on the stack below the caller's: nobody is yielding and no modal
    /// dialog is open. Meant for handlers of timers.
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
    QTimer waiting_;  ///< runs while there is something to do once the stack has unwound
};

}  // namespace ui
