#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/alphabet.h"

namespace search {

/// A part of a text, as places of bytes.
struct Span {
    std::size_t begin, end;
};

/// One word or phrase to look for, whatever its case.
class Term {
  public:
    /// `alphabet` must outlive the term, which is not empty.
    Term(std::string_view term, const Alphabet& alphabet);

    /// What a byte at which a match may be found can be: the last one of the character of the term
    /// that is rarest in texts.
    const std::string& AnchorBytes() const { return anchor_bytes_; }

    /// The match whose anchor is the byte at `anchor`, if it begins at or after `from`.
    std::optional<Span> MatchAround(std::string_view text, std::size_t anchor,
                                    std::size_t from) const;

    /// The most bytes that a match takes.
    std::size_t MostBytes() const { return folded_.size() * alphabet_->MostBytes(); }

  private:
    void ChooseAnchor();
    std::optional<Span> MatchCharacters(std::string_view text, std::size_t anchor,
                                        std::size_t from) const;

    const Alphabet* alphabet_;
    std::vector<char32_t> folded_;
    std::string ascii_;       ///< the same when all of it is ASCII, else ""
    std::size_t anchor_ = 0;  ///< which character of the term is the anchor
    std::string anchor_bytes_;
};

/// Finds a term in a text from left to right.
class TermFinder {
  public:
    /// The term must outlive the finder.
    explicit TermFinder(const Term& term);

    /// Begins with another text, which must stay as it is while it is searched.
    void Begin(std::string_view text);

    /// The first match that begins at or after `from`, which never goes down.
    std::optional<Span> From(std::size_t from);

  private:
    std::size_t AnchorFrom(std::size_t at);

    const Term* term_;
    std::string_view text_;
    std::vector<std::size_t> next_;  ///< where each of the anchor's bytes is next
    std::size_t anchor_ = 0;         ///< the first anchor that may belong to a later match
};

}  // namespace search
