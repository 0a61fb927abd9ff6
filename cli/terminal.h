#pragma once

#include <string>

#include "cli/output_stream.h"
#include "platform/message_box.h"

namespace cli {

/// The output of an unattended run: permanent lines and, on a terminal, a progress line that is
/// updated in place. Only `Finish` waits for a reader.
class Terminal {
  public:
    /// A quiet terminal prints only what is essential.
    explicit Terminal(bool quiet = false);

    /// Shows the progress on a terminal. Does nothing if the line has not changed or the output is
    /// not ready.
    void ShowProgress(const std::string& line);

    /// Prints lines that a quiet terminal omits.
    void Say(const std::string& lines);

    /// Prints permanent lines, at the latest when `Flush` finds that the output accepts them.
    void Print(const std::string& lines);

    /// Writes pending lines as far as the output accepts them.
    void Flush();

    /// Like `Flush`, but waits up to half a second for a slow reader. What is not read by then is
    /// lost.
    void Finish();

    /// Whether the reader of the output has closed the pipe.
    bool ReaderGone() const { return output_.ReaderGone(); }

  private:
    OutputStream output_{OutputStream::Which::Output};
    bool quiet_;
    bool shows_progress_;
    std::string progress_;  ///< the last progress line shown
    bool line_open_ = false;
    std::string pending_;  ///< text not written yet
};

/// Message boxes of an unattended run: prints the text and answers No.
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
