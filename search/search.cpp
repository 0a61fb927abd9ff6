#include "search/search.h"

#include <algorithm>
#include <utility>

#include "search/local_alphabet.h"
#include "search/query.h"
#include "search/snippet.h"

namespace search {

namespace {

constexpr std::size_t kBlock = 256 * 1024;

bool ComesFirst(std::uint32_t matches, const std::string& path, std::uint32_t other_matches,
                const std::string& other_path) {
    return matches != other_matches ? matches > other_matches : path < other_path;
}

}  // namespace

Search::Search(std::string_view query, Extracts extracts, const platform::Files& files)
    : files_(files),
      alphabet_(LocalAlphabet()),
      extracts_(std::move(extracts.paths)),
      block_(kBlock, '\0') {
    for (const std::string& term : TermsOf(query))
        terms_.emplace_back(term, alphabet_);
}

bool Search::Step() {
    if (extract_ == extracts_.size() || terms_.empty()) return false;
    if (!reader_) {
        reader_ = std::make_unique<RecordReader>(terms_, alphabet_);
        file_ = files_.OpenFile(extracts_[extract_]);
        offset_ = 0;
    }
    const std::size_t read = file_ ? file_->ReadAt(offset_, block_.data(), block_.size()) : 0;
    offset_ += read;
    reader_->Read(std::string_view(block_.data(), read), pages_);
    for (RecordedPage& page : pages_)
        Take(page);
    pages_.clear();
    if (read == 0) {
        reader_.reset();
        file_.reset();
        ++extract_;
    }
    return extract_ < extracts_.size();
}

void Search::Take(RecordedPage& page) {
    if (const auto before = hits_.find(page.path); before != hits_.end()) {
        matches_ -= before->second.matches;
        hits_.erase(before);
    }
    if (page.matches == 0) return;
    matches_ += page.matches;
    hits_.insert_or_assign(
        std::move(page.path),
        Found{page.matches, static_cast<std::uint32_t>(extract_), page.first_match});
    if (hits_.size() > 2 * kMostHits) DropWorstHits();
}

void Search::DropWorstHits() {
    const std::vector<Hit> best = Best(kMostHits);
    const Hit& last = best.back();
    left_out_ += std::erase_if(hits_, [&](const auto& hit) {
        return ComesFirst(last.matches, last.path, hit.second.matches, hit.first);
    });
}

std::vector<Hit> Search::Best(std::size_t most) const {
    std::vector<const std::pair<const std::string, Found>*> all;
    all.reserve(hits_.size());
    for (const auto& hit : hits_)
        all.push_back(&hit);
    const auto middle = all.begin() + static_cast<std::ptrdiff_t>(std::min(most, all.size()));
    std::partial_sort(all.begin(), middle, all.end(), [](const auto* a, const auto* b) {
        return ComesFirst(a->second.matches, a->first, b->second.matches, b->first);
    });
    std::vector<Hit> best;
    std::transform(all.begin(), middle, std::back_inserter(best), [](const auto* hit) {
        return Hit{hit->first, hit->second.matches, hit->second.extract, hit->second.first_match};
    });
    return best;
}

std::string Search::SnippetOf(const Hit& hit) const {
    const std::uint64_t begin =
        hit.first_match - std::min<std::uint64_t>(hit.first_match, kSnippetReach);
    const auto file = files_.OpenFile(extracts_[hit.extract]);
    std::string around(2 * kSnippetReach, '\0');
    around.resize(file ? file->ReadAt(begin, around.data(), around.size()) : 0);
    const auto at = static_cast<std::size_t>(hit.first_match - begin);
    if (at >= around.size()) return {};
    return SnippetAround(around, {at, at}, alphabet_);
}

std::vector<Span> Search::MatchesIn(std::string_view snippet) const {
    std::vector<Span> matches;
    for (const Term& term : terms_) {
        TermFinder finder(term);
        finder.Begin(snippet);
        for (auto match = finder.From(0); match; match = finder.From(match->end))
            matches.push_back(*match);
    }
    std::sort(matches.begin(), matches.end(), [](const Span& a, const Span& b) {
        return a.begin != b.begin ? a.begin < b.begin : a.end > b.end;
    });
    std::size_t end = 0;
    std::erase_if(matches, [&](const Span& match) {
        if (match.begin < end) return true;
        end = match.end;
        return false;
    });
    return matches;
}

std::string Search::FirstWordsIn(std::string_view snippet) const {
    const std::vector<Span> matches = MatchesIn(snippet);
    return matches.empty() ? "" : WholeWords(snippet, matches[0], alphabet_);
}

}  // namespace search
