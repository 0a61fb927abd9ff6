#pragma once

#include <cstddef>
#include <string_view>

namespace cli {

/// What a line ends in where the system's programs read it.
#ifdef _WIN32
inline constexpr char kLineEnd[] = "\r\n";
#else
inline constexpr char kLineEnd[] = "\n";
#endif

/// One of the program's standard streams, written to without ever waiting for whoever reads it: a
/// pipe that nobody empties must not hold up a crawl.
class OutputStream {
  public:
    enum class Which { Output = 1, Error = 2 };
    explicit OutputStream(Which which) : descriptor_(static_cast<int>(which)) {}

    bool IsTerminal() const;

    /// Whether it takes text within that time, as far as the system can tell; a time below 0 is
    /// for ever.
    bool Ready(int milliseconds = 0) const;

    /// Writes what is taken at once and gives its length. After a fault other than a full pipe, a
    /// full disk for example, the text counts as taken.
    std::size_t Write(std::string_view text);

    /// Whether the reader has closed the pipe, as far as the system tells before a write does.
    bool ReaderGone() const;

  private:
    int descriptor_;
    bool reader_gone_ = false;
};

/// Gives each standard stream that is closed a place. On Windows that is the console of whoever
/// started the program with arguments, since a program with windows is given none; elsewhere one
/// where all that is written gets lost, for the stream's number would go to the next file or
/// connection, and the terminal's text with it.
void OpenClosedStreams();

}  // namespace cli
