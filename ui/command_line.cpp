#include "ui/command_line.h"

#include <QCommandLineParser>
#include <optional>

#include "engine/state/crawl_state.h"
#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "text/numbers.h"
#include "ui/version.h"

namespace ui {

namespace {

constexpr int kBadArguments = 2;

CommandLine Refuse(const QString& why) {
    return {CommandLine::Action::Print, {}, why + "\nTry \"vantorin --help\".\n", kBadArguments};
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
    return text::RoundHalfEven(*seconds * 1000);
}

/// The options' names and what `--help` says about them.
struct Options {
    QCommandLineOption site{"site", "Download this web site without a window.", "ADDRESS"};
    QCommandLineOption folder{"folder", "Save it below this folder.", "FOLDER"};
    QCommandLineOption connections{
        "connections", "How many files to download at a time, 1 to 24. Default: 4.", "N"};
    QCommandLineOption timeout{
        "timeout", "Give a silent server this long; 0 is for ever. Default: 15.", "SECONDS"};
    QCommandLineOption help{{"h", "help"}, "Show this help."};
    QCommandLineOption version{{"v", "version"}, "Show the program's version."};
};

CommandLine OrderFrom(const QCommandLineParser& parser, const Options& options) {
    CommandLine line{CommandLine::Action::Crawl, {}, {}, 0};
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
        if (!milliseconds) return Refuse("--timeout takes a number of seconds.");
        line.order.timeout_milliseconds = *milliseconds;
    }
    return line;
}

}  // namespace

CommandLine ReadCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    const Options options;
    parser.setApplicationDescription(
        "Downloads a web site into a folder for browsing without a network.\n"
        "Without options it opens its window.");
    parser.addOptions({options.site, options.folder, options.connections, options.timeout,
                       options.help, options.version});
    if (!parser.parse(arguments)) return Refuse(parser.errorText());
    if (parser.isSet(options.help)) {
        return {CommandLine::Action::Print, {}, parser.helpText(), 0};
    }
    if (parser.isSet(options.version)) {
        return {CommandLine::Action::Print, {}, QString(kNameAndVersion) + "\n", 0};
    }
    if (!parser.positionalArguments().isEmpty()) {
        return Refuse("Unknown word \"" + parser.positionalArguments().first() + "\".");
    }
    if (parser.optionNames().isEmpty()) return {};
    return OrderFrom(parser, options);
}

}  // namespace ui
