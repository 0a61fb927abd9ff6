#pragma once

#include <string>

#include "platform/message_box.h"

namespace ui {

/// What an unattended run shows: a line of progress that stays in place on a terminal and is
/// repeated elsewhere, and lines that stay.
class Terminal {
  public:
    Terminal();

    /// Shows how far the crawl is; nothing when the line says the same as the last one.
    void ShowProgress(const std::string& line);

    /// Prints lines to keep.
    void Print(const std::string& lines);

  private:
    bool in_place_;
    std::string progress_;  ///< the progress shown last
    bool line_open_ = false;
};

/// Message boxes of an unattended run: the text is printed, and nobody says yes.
class TerminalBoxes : public platform::MessageBoxes {
  public:
    explicit TerminalBoxes(Terminal& terminal) : terminal_(terminal) {}

    platform::BoxAnswer MsgBox(const std::string& message, platform::BoxStyle style,
                               const std::string& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;

  private:
    Terminal& terminal_;
};

}  // namespace ui
