#pragma once

#include <string>

#include "cli/output_stream.h"
#include "platform/message_box.h"

namespace cli {

/// What an unattended run shows: on a terminal, a line of progress that stays in place; and lines
/// that stay. Nothing here waits for a reader but `Finish`.
class Terminal {
  public:
    /// A quiet one prints nothing but what it must.
    explicit Terminal(bool quiet = false);

    /// Shows on a terminal how far the crawl is; nothing when the line says the same as the last
    /// one, or while the output takes no more.
    void ShowProgress(const std::string& line);

    /// Prints lines that a quiet terminal leaves out.
    void Say(const std::string& lines);

    /// Prints lines to keep, at the latest when `Flush` finds that the output takes them.
    void Print(const std::string& lines);

    /// Writes what is still to be printed, as far as the output takes it.
    void Flush();

    /// The same for a slow reader, who gets half a second; one who reads nothing loses the rest.
    void Finish();

    /// Whether the reader has closed the pipe that is written to.
    bool ReaderGone() const { return output_.ReaderGone(); }

  private:
    OutputStream output_{OutputStream::Which::Output};
    bool quiet_;
    bool shows_progress_;
    std::string progress_;  ///< the progress shown last
    bool line_open_ = false;
    std::string pending_;  ///< not written yet
};

/// Message boxes of an unattended run: the text is printed, and nobody says yes.
class TerminalBoxes : public platform::MessageBoxes {
  public:
    explicit TerminalBoxes(Terminal& terminal) : terminal_(terminal) {}

    platform::BoxAnswer MsgBox(const std::string& message, platform::BoxStyle style,
                               const std::string& title) override;
    void AwaitAttention() override {}
    std::string InputBox(const std::string& prompt, const std::string& title) override;

  private:
    Terminal& terminal_;
};

}  // namespace cli
