#include "cli/terminal.h"

#include <QElapsedTimer>

#include "text/text.h"

namespace cli {

namespace {
constexpr int kLastWaitMilliseconds = 500;
}

Terminal::Terminal(bool quiet) : quiet_(quiet), shows_progress_(!quiet && output_.IsTerminal()) {}

void Terminal::ShowProgress(const std::string& line) {
    if (!shows_progress_ || line == progress_ || !pending_.empty() || !output_.Ready()) return;
    // Blanks overwrite the rest of a longer line.
    const std::size_t old_length = line_open_ ? progress_.size() : 0;
    const std::size_t blanks = old_length > line.size() ? old_length - line.size() : 0;
    progress_ = line;
    line_open_ = true;
    pending_ = "\r" + line + std::string(blanks, ' ');
    Flush();
}

void Terminal::Say(const std::string& lines) {
    if (!quiet_) Print(lines);
}

void Terminal::Print(const std::string& lines) {
    if (line_open_) pending_ += kLineEnd;
    line_open_ = false;
    pending_ += text::ReplaceAll(lines, "\n", kLineEnd) + kLineEnd;
    Flush();
}

void Terminal::Flush() {
    pending_.erase(0, output_.Write(pending_));
}

void Terminal::Finish() {
    QElapsedTimer waited;
    waited.start();
    for (qint64 left = kLastWaitMilliseconds; left > 0 && !pending_.empty();
         left = kLastWaitMilliseconds - waited.elapsed()) {
        if (output_.Ready(static_cast<int>(left))) Flush();
    }
}

platform::BoxAnswer TerminalBoxes::MsgBox(const std::string& message, platform::BoxStyle style,
                                          const std::string& title) {
    const bool asks =
        style == platform::BoxStyle::InformationYesNo || style == platform::BoxStyle::StopYesNo;
    std::string lines = text::ReplaceAll(message, "\r\n\r\n", " ");
    text::ReplaceAllIn(lines, "\r\n", " ");
    lines = title + " " + lines + (asks ? " No." : "");
    if (style == platform::BoxStyle::Stop || style == platform::BoxStyle::StopYesNo) {
        terminal_.Print(lines);
    } else {
        terminal_.Say(lines);
    }
    return asks ? platform::BoxAnswer::No : platform::BoxAnswer::Ok;
}

std::string TerminalBoxes::InputBox(const std::string& prompt, const std::string&) {
    terminal_.Print(prompt);
    return {};
}

}  // namespace cli
