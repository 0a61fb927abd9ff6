#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/files.h"
#include "search/record_reader.h"
#include "search/term.h"

namespace search {

/// A page in which all terms occur.
struct Hit {
    std::string path;  ///< as recorded: below the folder of the copy, in small letters
    std::uint32_t matches;
    std::size_t extract;        ///< which extract tells of it
    std::uint64_t first_match;  ///< where in that extract its first match begins
};

/// The most pages that a search keeps: of more, those with the most matches.
inline constexpr std::size_t kMostHits = 10'000;

/// A search of a copy's extract, done step by step between other events. A page that was recorded
/// more than once counts as it was recorded last.
class Search {
  public:
    /// Looks for `query` in the extracts of the copy in `folder`, a path with or without a final
    /// "\". `files` must outlive the search.
    Search(std::string_view query, const std::string& folder, const platform::Files& files);
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    /// Whether the folder holds any extract that can be read.
    bool HasExtract() const { return !extracts_.empty(); }

    /// Reads some more, 256 KB at most. False when all has been read.
    bool Step();

    /// How many pages were found so far, those that were left out among them.
    std::size_t PageCount() const { return hits_.size() + left_out_; }

    /// The pages found so far, most matches first, equal ones by path; `most` at most.
    std::vector<Hit> Best(std::size_t most) const;

    /// Words around the first match of `hit`, 160 characters at most; "" when they cannot be read.
    std::string SnippetOf(const Hit& hit) const;

  private:
    void Take(RecordedPage& page);
    void LeaveOutTheLeast();

    struct Found {
        std::uint32_t matches;
        std::uint32_t extract;
        std::uint64_t first_match;
    };

    const platform::Files& files_;
    Alphabet alphabet_;
    std::vector<Term> terms_;
    std::vector<std::unique_ptr<platform::FileReader>> extracts_;
    std::size_t extract_ = 0;   ///< which one is being read
    std::uint64_t offset_ = 0;  ///< how much of it has been read
    std::unique_ptr<RecordReader> reader_;
    std::string block_;
    std::vector<RecordedPage> pages_;
    std::unordered_map<std::string, Found> hits_;
    std::size_t left_out_ = 0;
};

}  // namespace search
