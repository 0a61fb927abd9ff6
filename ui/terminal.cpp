#include "ui/terminal.h"

#include <cstdio>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "text/text.h"

namespace ui {

namespace {

bool OutputIsTerminal() {
#ifdef _WIN32
    return _isatty(_fileno(stdout)) != 0;
#else
    return isatty(STDOUT_FILENO) != 0;
#endif
}

void Write(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

}  // namespace

Terminal::Terminal() : in_place_(OutputIsTerminal()) {}

void Terminal::ShowProgress(const std::string& line) {
    if (line == progress_) return;
    // Blanks cover what a longer line left there.
    const std::size_t old_length = line_open_ ? progress_.size() : 0;
    progress_ = line;
    if (!in_place_) return Write(line + "\n");
    line_open_ = true;
    Write("\r" + line + std::string(old_length > line.size() ? old_length - line.size() : 0, ' '));
}

void Terminal::Print(const std::string& lines) {
    if (line_open_) Write("\n");
    line_open_ = false;
    Write(lines + "\n");
}

platform::BoxAnswer TerminalBoxes::MsgBox(const std::string& message, platform::BoxStyle style,
                                          const std::string& title) {
    const bool asks =
        style == platform::BoxStyle::InformationYesNo || style == platform::BoxStyle::StopYesNo;
    std::string lines = text::ReplaceAll(message, "\r\n\r\n", " ");
    text::ReplaceAllIn(lines, "\r\n", " ");
    terminal_.Print(title + " " + lines + (asks ? " No." : ""));
    return asks ? platform::BoxAnswer::No : platform::BoxAnswer::Ok;
}

std::string TerminalBoxes::InputBox(const std::string& prompt, const std::string&) {
    terminal_.Print(prompt);
    return {};
}

}  // namespace ui
