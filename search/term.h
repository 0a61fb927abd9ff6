#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/alphabet.h"
#include "search/pair_scan.h"

namespace search {

/// A part of a text, as byte offsets.
struct Span {
    std::size_t begin, end;
};

/// A word or phrase to look for, ignoring case.
class Term {
  public:
    /// `term` is not empty. `alphabet` must outlive the object.
    Term(std::string_view term, const Alphabet& alphabet);

    /// The bytes at which a match may be found: the last bytes of all spellings of the term's
    /// rarest character.
    const std::string& AnchorBytes() const { return anchor_bytes_; }

    /// The scan for the pair of bytes around which a match may be found; nothing if the term has no
    /// two neighbouring characters that are always spelled in ASCII.
    const std::optional<PairScan>& Pairs() const { return pairs_; }

    /// The match whose anchor is the byte at `anchor`, if it starts at or after `from`.
    std::optional<Span> MatchAround(std::string_view text, std::size_t anchor,
                                    std::size_t from) const;

    /// The length in bytes of the longest match.
    std::size_t MostBytes() const { return folded_.size() * alphabet_->MostBytes(); }

  private:
    void ChooseAnchor();
    void ChoosePair();
    std::optional<Span> MatchCharacters(std::string_view text, std::size_t anchor,
                                        std::size_t from) const;

    const Alphabet* alphabet_;
    std::vector<char32_t> folded_;
    std::string ascii_;       ///< the same if it is all ASCII, otherwise ""
    std::size_t anchor_ = 0;  ///< the index of the anchor among the term's characters
    std::string anchor_bytes_;
    std::optional<PairScan> pairs_;
};

/// Finds a term in a text, from left to right.
class TermFinder {
  public:
    /// The term must outlive the finder.
    explicit TermFinder(const Term& term);

    /// Starts on another text, which must not change during the search.
    void Begin(std::string_view text);

    /// The first match that starts at or after `from`, which must not decrease from call to call.
    std::optional<Span> From(std::size_t from);

  private:
    std::size_t AnchorFrom(std::size_t at);

    const Term* term_;
    std::string_view text_;
    std::optional<PairScan> pairs_;
    std::vector<std::size_t> next_;  ///< the next position of each anchor byte
    std::size_t anchor_ = 0;         ///< the first anchor that may belong to a later match
};

}  // namespace search
