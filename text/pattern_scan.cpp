#include "text/pattern_scan.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace text {

namespace {

constexpr std::size_t kStride = PatternScan::kShortest - 1;
/// Characters whose pairs are looked at together; nearly all blocks have none that counts.
constexpr std::size_t kBlock = 64;
constexpr std::size_t kPairs = std::size_t{1} << 16;
static_assert(PatternScan::kMost * kStride <= 255, "places are counted in one byte");
/// One close look for so many characters costs no more than the pass itself.
constexpr std::size_t kCharactersPerLook = 8;
constexpr std::size_t kLooksAtLeast = 1000;

/// The two characters at `at`, as a number.
std::uint16_t PairAt(std::string_view subject, std::size_t at) {
    std::uint16_t pair;
    std::memcpy(&pair, subject.data() + at, sizeof pair);
    return pair;
}

}  // namespace

PatternScan::PatternScan(const std::vector<std::string>& patterns)
    : patterns_(patterns), first_place_(kPairs) {
    assert(patterns_.size() <= kMost);
    for (std::size_t i = 0; i < patterns_.size(); ++i) {
        short_[i] = patterns_[i].size() < kShortest;
        for (std::size_t offset = 0; offset < kStride && !short_[i]; ++offset) {
            places_.push_back({PairAt(patterns_[i], offset), static_cast<std::uint8_t>(i),
                               static_cast<std::uint8_t>(offset)});
        }
    }
    std::sort(places_.begin(), places_.end(),
              [](const Place& a, const Place& b) { return a.pair < b.pair; });
    for (std::size_t i = places_.size(); i > 0; --i) {
        first_place_[places_[i - 1].pair] = static_cast<std::uint8_t>(i);
    }
}

/// Whether the pair at `pair_at` is that of `place` in an occurrence of its pattern.
bool PatternScan::IsAround(std::string_view subject, std::size_t pair_at,
                           const Place& place) const {
    const std::string& pattern = patterns_[place.pattern];
    if (pair_at < place.offset) return false;
    const std::string_view rest = subject.substr(pair_at - place.offset);
    // The last character tells most of them.
    return rest.size() >= pattern.size() && rest[pattern.size() - 1] == pattern.back() &&
           std::memcmp(rest.data(), pattern.data(), pattern.size()) == 0;
}

/// Whether any of the pairs in the block at `at` is in a pattern.
bool PatternScan::HasPairIn(std::string_view subject, std::size_t at) const {
    unsigned any = 0;
    for (std::size_t i = 0; i < kBlock; i += kStride) {
        any |= first_place_[PairAt(subject, at + i)];
    }
    return any != 0;
}

PatternScan::Patterns PatternScan::MayOccur(std::string_view subject, Patterns not_asked) const {
    Patterns occur = short_ | not_asked;
    if (places_.empty()) return occur;
    std::size_t looks_left = subject.size() / kCharactersPerLook + kLooksAtLeast;
    for (std::size_t block = 0; block < subject.size(); block += kBlock) {
        const std::size_t end = std::min(block + kBlock, subject.size() - 1);
        if (end == block + kBlock && !HasPairIn(subject, block)) continue;
        for (std::size_t at = block; at < end; at += kStride) {
            const std::uint16_t pair = PairAt(subject, at);
            const std::size_t first = first_place_[pair];
            if (first == 0) continue;
            for (std::size_t i = first - 1; i < places_.size() && places_[i].pair == pair; ++i) {
                if (occur[places_[i].pattern]) continue;
                if (--looks_left == 0) return Patterns().set();
                occur[places_[i].pattern] = IsAround(subject, at, places_[i]);
            }
        }
    }
    return occur;
}

}  // namespace text
