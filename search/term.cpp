#include "search/term.h"

#include <algorithm>

#include "text/ascii.h"

namespace search {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// The letters and the blank, from the most to the least frequent in texts.
constexpr std::string_view kCommonBytes = " etaoinshrdlcumwfgypbvkxjqz";

bool IsWide(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

/// How frequent a byte is in texts, roughly. Higher means more frequent.
std::size_t Commonness(char byte) {
    const std::size_t rank = kCommonBytes.find(byte);
    if (rank != kNone) return 2 * (kCommonBytes.size() - rank);
    return IsWide(byte) ? 3 : 1;
}

}  // namespace

Term::Term(std::string_view term, const Alphabet& alphabet) : alphabet_(&alphabet) {
    for (std::size_t at = 0; at < term.size();) {
        const Character character = alphabet.CharacterAt(term, at);
        folded_.push_back(character.folded);
        at += character.length;
    }
    const auto is_ascii = [](char32_t c) { return c < 0x80; };
    if (std::all_of(folded_.begin(), folded_.end(), is_ascii)) {
        ascii_.assign(folded_.begin(), folded_.end());
    }
    ChooseAnchor();
    ChoosePair();
}

void Term::ChooseAnchor() {
    std::size_t lowest = kNone;
    for (std::size_t i = 0; i < folded_.size(); ++i) {
        std::string bytes;
        std::size_t commonness = 0;
        for (const std::string& spelling : alphabet_->SpellingsOf(folded_[i])) {
            if (bytes.find(spelling.back()) != kNone) continue;
            bytes += spelling.back();
            commonness += Commonness(spelling.back());
        }
        if (commonness >= lowest) continue;
        lowest = commonness;
        anchor_ = i;
        anchor_bytes_ = bytes;
    }
}

/// Makes the rarest pair the anchor if there is one.
void Term::ChoosePair() {
    const auto is_always_ascii = [this](char32_t c) {
        const auto spellings = alphabet_->SpellingsOf(c);
        return std::all_of(spellings.begin(), spellings.end(), [c](const std::string& spelling) {
            return spelling.size() == 1 && static_cast<char32_t>(spelling[0] | 0x20) == (c | 0x20);
        });
    };
    std::size_t lowest = kNone;
    for (std::size_t i = 0; i + 1 < ascii_.size(); ++i) {
        if (!is_always_ascii(folded_[i]) || !is_always_ascii(folded_[i + 1])) continue;
        const std::size_t commonness = Commonness(ascii_[i]) * Commonness(ascii_[i + 1]);
        if (commonness >= lowest) continue;
        lowest = commonness;
        anchor_ = i;
        pairs_.emplace(ascii_[i], ascii_[i + 1]);
    }
}

std::optional<Span> Term::MatchAround(std::string_view text, std::size_t anchor,
                                      std::size_t from) const {
    if (ascii_.empty()) return MatchCharacters(text, anchor, from);
    // Most texts are mostly ASCII, where each byte is a character.
    if (anchor < from + anchor_ || text.size() - anchor < ascii_.size() - anchor_) {
        return MatchCharacters(text, anchor, from);
    }
    const std::size_t begin = anchor - anchor_;
    // Compares from the anchor forwards and then backwards, because beyond a wide character, places
    // in the text no longer correspond to places in the term.
    const std::size_t after = ascii_.size() - anchor_;
    for (std::size_t step = 0; step < ascii_.size(); ++step) {
        const std::size_t i = step < after ? anchor_ + step : ascii_.size() - 1 - step;
        const char c = text[begin + i];
        if (IsWide(c)) return MatchCharacters(text, anchor, from);
        if (text::LowerLetter(c) != ascii_[i]) return std::nullopt;
    }
    return Span{begin, begin + ascii_.size()};
}

std::optional<Span> Term::MatchCharacters(std::string_view text, std::size_t anchor,
                                          std::size_t from) const {
    std::size_t begin = alphabet_->BeginOf(text, anchor);
    for (std::size_t i = 0; i < anchor_; ++i) {
        if (begin <= from) return std::nullopt;
        begin = alphabet_->Before(text, begin);
    }
    if (begin < from) return std::nullopt;
    std::size_t end = begin;
    for (const char32_t folded : folded_) {
        if (end == text.size()) return std::nullopt;
        const Character character = alphabet_->CharacterAt(text, end);
        if (character.folded != folded) return std::nullopt;
        end += character.length;
    }
    return Span{begin, end};
}

TermFinder::TermFinder(const Term& term)
    : term_(&term), pairs_(term.Pairs()), next_(pairs_ ? 0 : term.AnchorBytes().size()) {}

void TermFinder::Begin(std::string_view text) {
    text_ = text;
    anchor_ = 0;
    if (pairs_) pairs_->Begin(text);
    std::fill(next_.begin(), next_.end(), 0);
    for (std::size_t i = 0; i < next_.size(); ++i)
        next_[i] = text.find(term_->AnchorBytes()[i]);
}

std::size_t TermFinder::AnchorFrom(std::size_t at) {
    if (pairs_) return pairs_->From(at);
    std::size_t first = kNone;
    for (std::size_t i = 0; i < next_.size(); ++i) {
        if (next_[i] < at) next_[i] = text_.find(term_->AnchorBytes()[i], at);
        first = std::min(first, next_[i]);
    }
    return first;
}

std::optional<Span> TermFinder::From(std::size_t from) {
    for (anchor_ = std::max(anchor_, from); true; ++anchor_) {
        anchor_ = AnchorFrom(anchor_);
        if (anchor_ == kNone) return std::nullopt;
        if (const auto match = term_->MatchAround(text_, anchor_, from)) return match;
    }
}

}  // namespace search
