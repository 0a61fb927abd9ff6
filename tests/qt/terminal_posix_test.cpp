#include "cli/terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>

namespace {

/// Redirects standard output as long as this exists, and reads what the program prints.
class OutputTo {
  public:
    /// The reading and the writing end of a pipe or terminal.
    explicit OutputTo(std::array<int, 2> ends) : reading_(ends[0]), before_(dup(STDOUT_FILENO)) {
        fcntl(reading_, F_SETFL, O_NONBLOCK);
        dup2(ends[1], STDOUT_FILENO);
        close(ends[1]);
    }
    ~OutputTo() {
        dup2(before_, STDOUT_FILENO);
        close(before_);
        CloseReader();
    }
    OutputTo(const OutputTo&) = delete;
    OutputTo& operator=(const OutputTo&) = delete;

    /// What was printed since the last call.
    std::string Read() const {
        std::string all;
        std::array<char, 4096> part;
        for (ssize_t count; (count = read(reading_, part.data(), part.size())) > 0;)
            all.append(part.data(), static_cast<std::size_t>(count));
        return all;
    }
    void CloseReader() {
        if (reading_ >= 0) close(reading_);
        reading_ = -1;
    }

  private:
    int reading_;
    int before_;
};

std::array<int, 2> Pipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    return ends;
}

}  // namespace

TEST(Terminal, ProgressStaysOnItsLineAndErasesALongerOne) {
    const int reading = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(reading) + unlockpt(reading), 0);
    OutputTo output({reading, open(ptsname(reading), O_RDWR | O_NOCTTY)});
    cli::Terminal terminal;
    const auto shown = [&](const char* line) {
        terminal.ShowProgress(line);
        return output.Read();
    };
    EXPECT_EQ(shown("10 files"), "\r10 files");
    EXPECT_EQ(shown("10 files"), "");
    EXPECT_EQ(shown("9 files"), "\r9 files ");
    EXPECT_EQ(shown("11 files"), "\r11 files");
    terminal.Print("A line to keep.\nAnother.");
    EXPECT_EQ(output.Read(), "\r\nA line to keep.\r\nAnother.\r\n");
    EXPECT_EQ(shown("1 file"), "\r1 file") << "no other line is left";
}

TEST(Terminal, DoesNotWaitForReadersAndLosesNoLine) {
    OutputTo output(Pipe());
    cli::Terminal terminal;
    terminal.ShowProgress("1 file");
    EXPECT_EQ(output.Read(), "") << "only terminals get progress";
    const std::string much(200'000, 'x');  // more than a pipe holds
    terminal.Print(much);
    terminal.Print("last");
    terminal.Finish();
    std::string all = output.Read();
    EXPECT_LT(all.size(), much.size());
    for (std::string more; terminal.Flush(), !(more = output.Read()).empty();)
        all += more;
    EXPECT_EQ(all, much + "\nlast\n");
    EXPECT_FALSE(terminal.ReaderGone());

    const auto usual = std::signal(SIGPIPE, SIG_IGN);
    output.CloseReader();
    EXPECT_TRUE(terminal.ReaderGone()) << "before anything is printed";
    terminal.Print("to nobody");
    EXPECT_TRUE(terminal.ReaderGone());
    terminal.Finish();  // does not wait: there is no reader
    std::signal(SIGPIPE, usual);
}

TEST(TerminalBoxes, AnswerNoAndPrintTheirTextButOnlyFaultsIfQuiet) {
    using platform::BoxAnswer;
    using platform::BoxStyle;
    OutputTo output(Pipe());
    cli::Terminal terminal;
    cli::TerminalBoxes boxes(terminal);
    EXPECT_EQ(boxes.MsgBox("One.\r\n\r\nTwo.\r\nMore?", BoxStyle::InformationYesNo, "Done."),
              BoxAnswer::No);
    EXPECT_EQ(boxes.MsgBox("Sure?", BoxStyle::StopYesNo, "Stop"), BoxAnswer::No);
    EXPECT_EQ(boxes.MsgBox("Bad folder.", BoxStyle::Stop, "Eror"), BoxAnswer::Ok);
    EXPECT_EQ(output.Read(), "Done. One. Two. More? No.\nStop Sure? No.\nEror Bad folder.\n");

    cli::Terminal quiet(/*quiet=*/true);
    cli::TerminalBoxes quiet_boxes(quiet);
    quiet_boxes.MsgBox("Complete.", BoxStyle::InformationYesNo, "Done.");
    quiet.Say("1 files, 2 bytes.");
    quiet_boxes.MsgBox("Bad folder.", BoxStyle::Stop, "Eror");
    quiet.Print("1 saved");
    EXPECT_EQ(output.Read(), "Eror Bad folder.\n1 saved\n");
}
