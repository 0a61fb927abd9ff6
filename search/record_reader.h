#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "search/term.h"

namespace search {

/// A page found in the extract.
struct RecordedPage {
    std::string path;
    std::uint32_t matches = 0;      ///< 0 if not all terms occur
    std::uint64_t first_match = 0;  ///< the offset of the first match in the extract, in bytes
};

/// Reads an extract in blocks of any size and looks for terms in the text of each record. A record
/// is a line "! " with the page's path and a line with its text. Lines outside a record are
/// skipped, and so is a record whose text is empty or has no line end.
class RecordReader {
  public:
    /// A page matches if all terms occur. Terms and alphabet must outlive the reader.
    RecordReader(const std::vector<Term>& terms, const Alphabet& alphabet);

    /// Reads the next block of the extract and appends the records that it completes to `pages`.
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
    std::size_t reach_ = 1;  ///< the length of the longest match in bytes

    State state_ = State::LineBegin;
    std::string held_;             ///< what has been read and may still be needed
    std::size_t at_ = 0;           ///< how much of that is processed
    std::uint64_t held_from_ = 0;  ///< the offset of `held_` in the extract

    RecordedPage page_;
    std::vector<char> found_;       ///< for each term, whether it has occurred in this page
    std::uint64_t text_from_ = 0;   ///< the offset in the extract where this page's text begins
    std::uint64_t counted_to_ = 0;  ///< the offset in the extract where the last counted match ends
};

}  // namespace search
