#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/files.h"
#include "search/extracts.h"
#include "search/record_reader.h"
#include "search/term.h"

namespace search {

/// A page in which all terms occur.
struct Hit {
    std::string path;  ///< as recorded: relative to the copy's folder, in lower case
    std::uint32_t matches;
    std::size_t extract;        ///< the index of its extract
    std::uint64_t first_match;  ///< the offset of its first match there
};

/// A search keeps at least this many of the pages that it finds, those with the most matches, and
/// at most twice as many.
inline constexpr std::size_t kMostHits = 10'000;

/// A search of a copy's extracts, in steps between other events. If a page was recorded more than
/// once, its last record counts.
class Search {
  public:
    /// Searches the extracts of a copy for `query`. `files` must outlive the search.
    Search(std::string_view query, Extracts extracts, const platform::Files& files);
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    /// Reads at most 256 KB more. False when everything has been read.
    bool Step();

    /// The number of pages and of matches found so far, including those that were dropped.
    std::size_t PageCount() const { return hits_.size() + left_out_; }
    std::uint64_t MatchCount() const { return matches_; }

    /// At most `most` of the pages found so far, those with the most matches first, then by path.
    std::vector<Hit> Best(std::size_t most) const;

    /// The words around the first match of `hit`, at most 160 characters; "" if they cannot be
    /// read.
    std::string SnippetOf(const Hit& hit) const;

    /// The places of the query's terms in a snippet, from left to right, without overlaps.
    std::vector<Span> MatchesIn(std::string_view snippet) const;

    /// The whole words of the first match in a snippet; "" if there is none.
    std::string FirstWordsIn(std::string_view snippet) const;

  private:
    void Take(RecordedPage& page);
    void DropWorstHits();

    struct Found {
        std::uint32_t matches;
        std::uint32_t extract;
        std::uint64_t first_match;
    };

    const platform::Files& files_;
    Alphabet alphabet_;
    std::vector<Term> terms_;
    std::vector<std::string> extracts_;
    std::size_t extract_ = 0;  ///< the index of the one being read
    std::unique_ptr<platform::FileReader> file_;
    std::uint64_t offset_ = 0;  ///< how much of it has been read
    std::unique_ptr<RecordReader> reader_;
    std::string block_;
    std::vector<RecordedPage> pages_;
    std::unordered_map<std::string, Found> hits_;
    std::size_t left_out_ = 0;
    std::uint64_t matches_ = 0;
};

}  // namespace search
