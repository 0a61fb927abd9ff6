#include "cli/search_command.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "cli/output_stream.h"
#include "cli/unattended.h"
#include "platform/path_text.h"
#include "search/search.h"

namespace cli {

namespace {

constexpr int kForEver = -1;

/// Writes all of `text`, waiting for the reader. Returns false if the reader has gone.
bool Print(std::string_view text, OutputStream& stream) {
    while (!text.empty() && stream.Ready(kForEver)) {
        text.remove_prefix(stream.Write(text));
        if (stream.ReaderGone()) return false;
    }
    return true;
}

}  // namespace

int RunSearch(const SearchOrder& order, const platform::Files& files) {
    search::Extracts extracts = search::ExtractsOf(order.folder, files);
    if (const std::string_view why = search::WhyNothing(extracts.state); !why.empty()) {
        OutputStream error(OutputStream::Which::Error);
        Print("There is nothing to search in " +
                  platform::SystemPathOf(order.folder).value_or(order.folder) + ": " +
                  std::string(why) + "." + kLineEnd,
              error);
        return kExitNoExtract;
    }
    search::Search search(order.words, std::move(extracts), files);
    while (search.Step()) {
    }
    OutputStream output(OutputStream::Which::Output);
    for (const search::Hit& hit : search.Best(order.limit)) {
        const std::string line =
            std::to_string(hit.matches) + "\t" + hit.path + "\t" + search.SnippetOf(hit) + kLineEnd;
        if (!Print(line, output)) return kExitReaderGone;
    }
    return search.PageCount() > 0 ? kExitFound : kExitNotFound;
}

}  // namespace cli
