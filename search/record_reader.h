#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "search/term.h"

namespace search {

/// What a record of the extract says of its page.
struct RecordedPage {
    std::string path;
    std::uint32_t matches = 0;      ///< 0 when not every term occurs
    std::uint64_t first_match = 0;  ///< where in the extract the first match begins, in bytes
};

/// Reads an extract in blocks of any size and looks for terms in the text of each record. A record
/// is a line "! " with the page's path and a line with its text. Lines that belong to no record are
/// passed over, and so is a record whose text has no end.
class RecordReader {
  public:
    /// All terms must occur in a page. Terms and alphabet must outlive the reader.
    RecordReader(const std::vector<Term>& terms, const Alphabet& alphabet);

    /// Takes the next block of the extract and appends the records that it completes to `pages`.
    void Read(std::string_view block, std::vector<RecordedPage>& pages);

  private:
    enum class State { LineBegin, OtherLine, Path, Text };

    bool Advance(std::vector<RecordedPage>& pages);
    bool SkipLine();
    bool ReadPath();
    bool ReadText(std::vector<RecordedPage>& pages);
    bool AllOccur(std::string_view text, std::size_t limit, bool is_whole);
    void CountMatches(std::size_t limit);
    std::string_view Held() const { return std::string_view(held_).substr(at_); }

    const Alphabet& alphabet_;
    std::vector<TermFinder> finders_;
    std::size_t reach_ = 1;  ///< the bytes of the longest match

    State state_ = State::LineBegin;
    std::string held_;             ///< what has been read and may still be looked at
    std::size_t at_ = 0;           ///< how much of that is done
    std::uint64_t held_from_ = 0;  ///< where in the extract it begins

    RecordedPage page_;
    std::vector<char> found_;       ///< for each term whether it has occurred in this page
    std::uint64_t counted_to_ = 0;  ///< where in the extract the last match counted ends
};

}  // namespace search
