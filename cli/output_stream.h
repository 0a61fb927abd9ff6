#pragma once

#include <cstddef>
#include <string_view>

namespace cli {

/// The line end that the system's programs expect.
#ifdef _WIN32
inline constexpr char kLineEnd[] = "\r\n";
#else
inline constexpr char kLineEnd[] = "\n";
#endif

/// One of the program's standard streams. Writing never waits for the reader, because a full pipe
/// must not hold up a crawl.
class OutputStream {
  public:
    enum class Which { Output = 1, Error = 2 };
    explicit OutputStream(Which which) : descriptor_(static_cast<int>(which)) {}

    bool IsTerminal() const;

    /// Whether the stream accepts text within this time, as far as the system can tell. A negative
    /// time waits for ever.
    bool Ready(int milliseconds = 0) const;

    /// Writes what the stream accepts at once and returns its length. After a fault other than a
    /// full pipe, such as a full disk, all text counts as written.
    std::size_t Write(std::string_view text);

    /// Whether the reader has closed the pipe, as far as the system can tell without a write.
    bool ReaderGone() const;

  private:
    int descriptor_;
    bool reader_gone_ = false;
};

/// Reopens closed standard streams. On Windows they lead to the console of the parent process if
/// there are options, because a program with windows gets no console. Elsewhere they lead to
/// /dev/null, so that no file or connection gets descriptors 0-2 and receives the terminal's text.
void OpenClosedStreams();

}  // namespace cli
