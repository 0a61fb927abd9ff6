#include "text/pattern_scan.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace text {

namespace {

/// Candidates for anchors, roughly from the rarest in pages to the most frequent.
constexpr std::string_view kRareFirst = "=:.;?/'\"<>zqxjkvbywgpfmucdlhrsinoate ";

/// One close look per this many characters costs no more than the search itself.
constexpr std::size_t kCharactersPerLook = 8;
constexpr std::size_t kLooksAtLeast = 1000;

std::size_t AnchorOffset(const std::string& pattern) {
    for (const char rare : kRareFirst) {
        const std::size_t offset = pattern.find(rare);
        if (offset != std::string::npos) return offset;
    }
    return 0;
}

std::size_t IndexOf(char character) {
    return static_cast<unsigned char>(character);
}

/// Notes that `pattern` has `neighbour` on one side of its anchor. If `neighbour` is empty, the
/// pattern begins or ends there and any neighbour fits.
void AddNeighbour(std::string_view neighbour, std::size_t pattern,
                  std::array<PatternScan::Patterns, 256>& by_neighbour) {
    if (!neighbour.empty()) {
        by_neighbour[IndexOf(neighbour[0])].set(pattern);
        return;
    }
    for (PatternScan::Patterns& fitting : by_neighbour) {
        fitting.set(pattern);
    }
}

}  // namespace

PatternScan::PatternScan(const std::vector<std::string>& patterns) : patterns_(patterns) {
    assert(patterns_.size() <= kMost);
    for (std::size_t i = 0; i < patterns_.size(); ++i) {
        offsets_.push_back(AnchorOffset(patterns_[i]));
        short_[i] = patterns_[i].size() < kShortest;
        if (!short_[i]) AddAnchor(i);
    }
}

void PatternScan::AddAnchor(std::size_t pattern) {
    const std::string_view text = patterns_[pattern];
    const std::size_t offset = offsets_[pattern];
    auto anchor = std::find_if(anchors_.begin(), anchors_.end(),
                               [&](const Anchor& a) { return a.character == text[offset]; });
    if (anchor == anchors_.end())
        anchor = anchors_.insert(anchor, Anchor{text[offset], {}, {}, {}});
    anchor->patterns.set(pattern);
    AddNeighbour(text.substr(offset > 0 ? offset - 1 : 0, offset > 0), pattern,
                 anchor->by_previous);
    AddNeighbour(text.substr(offset + 1, 1), pattern, anchor->by_next);
}

/// Whether `pattern` occurs with its anchor at `anchor_at`.
bool PatternScan::IsAround(std::string_view subject, std::size_t anchor_at,
                           std::size_t pattern) const {
    if (anchor_at < offsets_[pattern]) return false;
    return subject.substr(anchor_at - offsets_[pattern]).starts_with(patterns_[pattern]);
}

/// Adds to `occur` the anchor's patterns that may occur.
void PatternScan::Search(std::string_view subject, const Anchor& anchor, Patterns& occur) const {
    const std::size_t most_looks = subject.size() / kCharactersPerLook + kLooksAtLeast;
    std::size_t looks = 0;
    for (std::size_t at = 0; (anchor.patterns & ~occur).any(); ++at) {
        at = subject.find(anchor.character, at);
        if (at == std::string_view::npos) return;
        Patterns around = anchor.patterns & ~occur;
        if (at > 0) around &= anchor.by_previous[IndexOf(subject[at - 1])];
        if (at + 1 < subject.size()) around &= anchor.by_next[IndexOf(subject[at + 1])];
        for (auto bits = around.to_ullong(); bits != 0; bits &= bits - 1) {
            const auto pattern = static_cast<std::size_t>(std::countr_zero(bits));
            if (IsAround(subject, at, pattern)) occur.set(pattern);
            ++looks;
        }
        if (++looks > most_looks) {
            occur |= anchor.patterns;
            return;
        }
    }
}

PatternScan::Patterns PatternScan::MayOccur(std::string_view subject, Patterns not_asked) const {
    Patterns occur = short_ | not_asked;
    for (const Anchor& anchor : anchors_) {
        Search(subject, anchor, occur);
    }
    return occur;
}

}  // namespace text
