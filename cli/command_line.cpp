#include "cli/command_line.h"

#include <QCommandLineParser>
#include <optional>

#include "crawl/crawl_state.h"
#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "text/numbers.h"
#include "ui/version.h"

namespace cli {

namespace {

constexpr int kBadArguments = 2;

CommandLine Refuse(const QString& why) {
    return {
        CommandLine::Action::Print, {}, {}, why + "\nTry \"vantorin --help\".\n", kBadArguments};
}

std::optional<int> ReadConnections(const QString& text) {
    bool is_number = false;
    const int count = text.toInt(&is_number);
    if (!is_number || count < 1 || count > crawl::kSlotCount) return std::nullopt;
    return count;
}

std::optional<std::int64_t> ReadTimeout(const QString& text) {
    const std::optional<double> seconds = text::WholeNumber(platform::ToBytes(text));
    if (!seconds || !(*seconds >= 0)) return std::nullopt;
    const std::optional<std::int64_t> milliseconds = text::RoundHalfEven(*seconds * 1000);
    // A small timeout must not be rounded down to 0, which waits for ever.
    if (milliseconds == 0 && *seconds > 0) return std::nullopt;
    return milliseconds;
}

struct Options {
    QCommandLineOption site{"site", "", "ADDRESS"};
    QCommandLineOption folder{"folder", "", "FOLDER"};
    QCommandLineOption connections{"connections", "", "N"};
    QCommandLineOption timeout{"timeout", "", "SECONDS"};
    QCommandLineOption report{"report", "", "FILE"};
    QCommandLineOption quiet{"quiet"};
    QCommandLineOption search{"search", "", "WORDS"};
    QCommandLineOption limit{"limit", "", "N"};
    QCommandLineOption help{{"h", "help"}};
    QCommandLineOption version{{"v", "version"}};
};

/// The manual page, docs/vantorin.1, says the same.
constexpr char kHelp[] =
    R"(Usage: vantorin [ADDRESS]
       vantorin --site ADDRESS --folder FOLDER [OPTION]...
       vantorin --search WORDS --folder FOLDER [--limit N]

Downloads a web site into a folder, for browsing without a network. The first
form opens the program's window, with ADDRESS in its wizard. The second one
needs no display: it says on a terminal how far it is, then what became of the
addresses, and answers every question with No. Ctrl+C stops it, a second Ctrl+C
at once.

Options:
  --site ADDRESS      the page to start from
  --folder FOLDER     where to save; the folder is made when it is missing. Its path
                      may not hold "www.", "__", a name that begins with a blank, or
                      any of * < > { } ? ! & |
  --connections N     how many files to download at a time, 1 to 24 (default: 4)
  --timeout SECONDS   how long a server may be silent before its file is tried
                      again, three times in all; 0 waits for ever (default: 15)
  --report FILE       write a line about each address, as comma-separated values
  --quiet             print only what became of the addresses, and faults
  --search WORDS      search the copy in the folder instead: print a line for each
                      page in which all words occur, whatever their case, the one
                      with the most matches first: how many, its path, and words
                      around the first one, with tabs between. "Several words"
                      between double quotes are looked for as they stand.
  --limit N           how many pages a search prints (default: 50)
  -h, --help          show this help
  -v, --version       show the program's version

Exit status:
  0    the site is complete: every address was answered and its file written
  1    the folder or the report cannot be used, or another download is being saved
       in the folder, or no type of files to download is known; without options:
       there is no display
  2    the options make no sense
  3    complete, but some addresses were unanswered, short, not written or too large
  4    complete, but not one file was saved
  5    nothing was found; a search that finds something exits with 0, one in a
       folder without a copy with 1
  129, 130, 143
       stopped by a signal: SIGHUP, SIGINT (Ctrl+C), SIGTERM
  141  stopped because whatever read the output has gone
A reader that only pauses holds nothing up: progress is dropped meanwhile, and
the last lines wait for half a second.

Files:
  temp/filetypes.txt  the types of files to download, one on each line
  filters.txt         keywords: addresses with one of them are not downloaded
       Both lie beside the program where that is a folder of its own that can be
       written to, else in your data folder: on Linux ~/.local/share/Vantorin, on
       Windows %APPDATA%\Vantorin.
       The window's settings (on Linux ~/.config/Vantorin/Vantorin.conf, on Windows
       in the registry below HKEY_CURRENT_USER\Software\Vantorin) are left alone
       by a download without it.
  FOLDER/.../*.tmp    files that wait to be downloaded
       They go when the download ends or is stopped. After a crash, a kill or a
       second Ctrl+C they stay, and the next download takes each for a file that
       is there already. The wizard of the window offers to remove them; a fresh
       folder does as well.
)";

CommandLine WindowFor(const QStringList& words) {
    CommandLine line;
    if (!words.isEmpty()) line.address = platform::ToBytes(words.first().trimmed());
    return line;
}

CommandLine OrderFrom(const QCommandLineParser& parser, const Options& options) {
    CommandLine line{CommandLine::Action::Crawl, {}, {}, {}, 0};
    const QString site = parser.value(options.site).trimmed();
    const QString folder = parser.value(options.folder);
    if (site.isEmpty()) return Refuse("No web site is given (--site ADDRESS).");
    if (folder.trimmed().isEmpty()) return Refuse("No folder is given (--folder FOLDER).");
    line.order.site = platform::ToBytes(site);
    line.order.folder = platform::PathTextOf(platform::ToBytes(folder));
    if (parser.isSet(options.connections)) {
        const auto count = ReadConnections(parser.value(options.connections));
        if (!count) return Refuse("--connections takes a number from 1 to 24.");
        line.order.connections = *count;
    }
    if (parser.isSet(options.timeout)) {
        const auto milliseconds = ReadTimeout(parser.value(options.timeout));
        if (!milliseconds)
            return Refuse("--timeout takes a number of seconds, 0 or from 0.001 on.");
        line.order.timeout_milliseconds = *milliseconds;
    }
    if (parser.isSet(options.report)) {
        const QString report = parser.value(options.report);
        if (report.trimmed().isEmpty()) return Refuse("No file is given (--report FILE).");
        line.order.report = platform::PathTextOf(platform::ToBytes(report));
    }
    line.order.quiet = parser.isSet(options.quiet);
    return line;
}

CommandLine SearchFrom(const QCommandLineParser& parser, const Options& options) {
    CommandLine line{CommandLine::Action::Search, {}, {}, {}, 0};
    const QString words = parser.value(options.search);
    const QString folder = parser.value(options.folder);
    for (const auto* other :
         {&options.site, &options.connections, &options.timeout, &options.report, &options.quiet}) {
        if (parser.isSet(*other)) {
            return Refuse("--search goes with --folder and --limit, not with --" +
                          other->names().first() + ".");
        }
    }
    if (words.trimmed().isEmpty()) return Refuse("No words are given (--search WORDS).");
    if (folder.trimmed().isEmpty()) return Refuse("No folder is given (--folder FOLDER).");
    line.search.words = platform::ToBytes(words);
    line.search.folder = platform::PathTextOf(platform::ToBytes(folder));
    if (parser.isSet(options.limit)) {
        bool is_number = false;
        const int limit = parser.value(options.limit).toInt(&is_number);
        if (!is_number || limit < 1) return Refuse("--limit takes a number from 1 on.");
        line.search.limit = static_cast<std::size_t>(limit);
    }
    return line;
}

}  // namespace

CommandLine ReadCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    const Options options;
    parser.addOptions({options.site, options.folder, options.connections, options.timeout,
                       options.report, options.quiet, options.search, options.limit, options.help,
                       options.version});
    if (!parser.parse(arguments)) return Refuse(parser.errorText());
    if (parser.isSet(options.help)) return {CommandLine::Action::Print, {}, {}, kHelp, 0};
    if (parser.isSet(options.version)) {
        return {CommandLine::Action::Print, {}, {}, QString(ui::kNameAndVersion) + "\n", 0};
    }
    const QStringList words = parser.positionalArguments();
    if (parser.optionNames().isEmpty() && words.size() < 2) return WindowFor(words);
    if (!words.isEmpty()) return Refuse("Unknown argument \"" + words.last() + "\".");
    if (parser.isSet(options.search)) return SearchFrom(parser, options);
    return OrderFrom(parser, options);
}

}  // namespace cli
