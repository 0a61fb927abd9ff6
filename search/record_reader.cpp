#include "search/record_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace search {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kPathMark = "! ";
/// A longer line is not a page's path.
constexpr std::size_t kLongestPath = 8192;

std::string_view WithoutReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

}  // namespace

RecordReader::RecordReader(const std::vector<Term>& terms, const Alphabet& alphabet)
    : alphabet_(alphabet), finders_(terms.begin(), terms.end()), found_(terms.size()) {
    for (const Term& term : terms)
        reach_ = std::max(reach_, term.MostBytes());
}

void RecordReader::Read(std::string_view block, std::vector<RecordedPage>& pages) {
    held_from_ += at_;
    held_.erase(0, at_);
    at_ = 0;
    held_ += block;
    while (Advance(pages)) {
    }
}

/// Takes one step; false if the next one needs more data.
bool RecordReader::Advance(std::vector<RecordedPage>& pages) {
    switch (state_) {
        case State::LineBegin:
            if (Held().empty() || (Held().size() == 1 && Held()[0] == '!')) return false;
            state_ = Held().starts_with(kPathMark) ? State::Path : State::OtherLine;
            return true;
        case State::OtherLine:
            return SkipLine();
        case State::Path:
            return ReadPath();
        case State::Text:
            return ReadText(pages);
    }
    return false;
}

bool RecordReader::SkipLine() {
    const std::size_t end = Held().find('\n');
    at_ = end == kNone ? held_.size() : at_ + end + 1;
    if (end != kNone) state_ = State::LineBegin;
    return end != kNone;
}

bool RecordReader::ReadPath() {
    const std::size_t end = Held().find('\n');
    if (end == kNone && Held().size() <= kLongestPath) return false;
    if (end > kLongestPath) {
        state_ = State::OtherLine;
        return true;
    }
    const std::string_view line = WithoutReturn(Held().substr(0, end));
    page_ = {std::string(line.substr(kPathMark.size()))};
    std::fill(found_.begin(), found_.end(), false);
    at_ += end + 1;
    text_from_ = counted_to_ = held_from_ + at_;
    state_ = State::Text;
    return true;
}

bool RecordReader::ReadText(std::vector<RecordedPage>& pages) {
    const std::size_t end = Held().find('\n');
    const bool is_whole = end != kNone;
    const std::string_view text = is_whole ? WithoutReturn(Held().substr(0, end)) : Held();
    // A match that starts at `limit` or later may be incomplete.
    std::size_t limit = text.size();
    if (!is_whole) {
        limit = alphabet_.BeginOf(text, limit > reach_ ? limit - reach_ : 0);
        if (limit == 0) return false;
    }
    const bool all_occur = AllOccur(text, limit, is_whole);
    if (all_occur || !is_whole) CountMatches(limit);
    if (!is_whole) {
        at_ += limit;
        return false;
    }
    if (!all_occur) page_.matches = 0;
    // A retry that came to nothing leaves a record without text. The page's file is still the one
    // recorded before.
    const bool has_text = !text.empty() || held_from_ + at_ > text_from_;
    if (has_text) pages.push_back(std::move(page_));
    at_ += end + 1;
    state_ = State::LineBegin;
    return true;
}

/// Notes which terms start before `limit` in `text`. If this is the end of the page, the search
/// ends at the first missing term.
bool RecordReader::AllOccur(std::string_view text, std::size_t limit, bool is_whole) {
    bool all = true;
    for (std::size_t i = 0; i < finders_.size() && (all || !is_whole); ++i) {
        finders_[i].Begin(text);
        const auto match = finders_[i].From(0);
        if (match && match->begin < limit) found_[i] = true;
        all = all && found_[i];
    }
    return all;
}

/// Counts the matches that start before `limit`, from left to right. Of several at one position the
/// longest counts. Matches do not overlap.
void RecordReader::CountMatches(std::size_t limit) {
    const std::uint64_t origin = held_from_ + at_;
    std::size_t from = counted_to_ > origin ? static_cast<std::size_t>(counted_to_ - origin) : 0;
    std::vector<std::optional<Span>> next(finders_.size());
    for (std::size_t i = 0; i < next.size(); ++i)
        next[i] = finders_[i].From(from);
    while (true) {
        std::optional<Span> first;
        for (std::size_t i = 0; i < next.size(); ++i) {
            if (next[i] && next[i]->begin < from) next[i] = finders_[i].From(from);
            if (!next[i]) continue;
            const bool is_earlier = !first || next[i]->begin < first->begin;
            if (is_earlier || (next[i]->begin == first->begin && next[i]->end > first->end)) {
                first = next[i];
            }
        }
        if (!first || first->begin >= limit) return;
        if (page_.matches++ == 0) page_.first_match = origin + first->begin;
        from = first->end;
        counted_to_ = origin + from;
    }
}

}  // namespace search
