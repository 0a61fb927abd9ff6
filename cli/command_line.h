#pragma once

#include <QStringList>
#include <cstdint>
#include <string>

#include "cli/search_command.h"

namespace cli {

/// A crawl ordered on the command line.
struct CrawlOrder {
    std::string site;
    std::string folder;  ///< path text
    int connections = 4;
    std::int64_t timeout_milliseconds = 15000;  ///< 0 waits for ever
    std::string report;                         ///< path text; "" for none
    bool quiet = false;                         ///< print only the result and faults
};

/// What the command line asks for.
struct CommandLine {
    enum class Action { OpenWindow, Crawl, Search, Print };
    Action action = Action::OpenWindow;
    CrawlOrder order;    ///< for `Crawl`
    SearchOrder search;  ///< for `Search`
    QString text;        ///< for `Print`
    int exit_code = 0;   ///< for `Print`; 2 if the arguments are wrong
    /// For `OpenWindow`: the web site to offer; "" for the last one.
    std::string address = {};
};

/// Reads the command line; `arguments` begin with the program's name.
CommandLine ReadCommandLine(const QStringList& arguments);

}  // namespace cli
