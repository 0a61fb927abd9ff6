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

Downloads a web site into a folder, so that it can be browsed without a network.
The first form opens the window, with ADDRESS in the wizard. The second one needs
no display: it shows its progress on a terminal, prints what became of the
addresses, and answers every question with No. Ctrl+C stops it tidily, a second
Ctrl+C at once. The third one searches the pages of a copy.

Options:
  --site ADDRESS      the page to start from
  --folder FOLDER     where to save; a missing folder is created. Its path must not
                      contain "www.", "__", a name that begins with a blank, or any
                      of * < > { } ? ! & |
  --connections N     how many files to download at once, 1 to 24 (default: 4)
  --timeout SECONDS   how long a server may be silent before a file is tried again,
                      three times in all; 0 waits for ever (default: 15)
  --report FILE       write what became of each address, as comma-separated values
  --quiet             print only the totals and faults
  --search WORDS      print each page that contains all the words, in any case, the
                      page with the most matches first: the number of matches, the
                      path and an excerpt, separated by tabs. "Several words" in
                      double quotes match as a phrase.
  --limit N           how many pages a search prints (default: 50)
  -h, --help          show this help
  -v, --version       show the program's version

Exit status:
  0    every address was answered and its file written; or the search found something
  1    the folder or the report cannot be used, another download uses the folder, no
       file type to download is known, there is nothing to search; without options:
       there is no display
  2    the options are wrong
  3    the download ended, but some addresses were unanswered, short, not written or
       too large
  4    the download ended without a saved file
  5    the search found nothing
  129, 130, 143
       stopped by a signal: SIGHUP, SIGINT (Ctrl+C), SIGTERM
  141  stopped because nothing reads the output any more
A reader that pauses does not stop the download: progress lines are dropped
meanwhile, and the last lines wait for half a second.

Files:
  temp/filetypes.txt  the types of files to download, one per line
  filters.txt         keywords: an address that contains one is not downloaded
       Both are beside the program if it has a folder of its own and can write there,
       otherwise in your data folder: on Linux ~/.local/share/Vantorin, on Windows
       %APPDATA%\Vantorin. A download without the window leaves the window's settings
       unchanged (on Linux in ~/.config/Vantorin/Vantorin.conf, on Windows in the
       registry under HKEY_CURRENT_USER\Software\Vantorin).
  FOLDER/.../*.tmp    placeholders of queued files
       The end of a download removes them. After a crash, a kill or a second Ctrl+C
       they stay, and the next download takes them for files that are already there.
       The wizard offers to remove them.
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
            return Refuse("--timeout takes a number of seconds: 0, or at least 0.001.");
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
        if (!is_number || limit < 1) return Refuse("--limit takes a number of at least 1.");
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
