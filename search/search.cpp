#include "search/search.h"

#include <algorithm>
#include <utility>

#include "search/local_alphabet.h"
#include "search/query.h"
#include "search/snippet.h"

namespace search {

namespace {

constexpr std::size_t kBlock = 256 * 1024;
constexpr char kExtracts[] = "\\_SearchData";

bool ComesFirst(std::uint32_t matches, const std::string& path, std::uint32_t other_matches,
                const std::string& other_path) {
    return matches != other_matches ? matches > other_matches : path < other_path;
}

/// The names of the extracts in a folder, sorted.
std::vector<std::string> ExtractsIn(const std::string& folder, const platform::Files& files) {
    std::vector<std::string> names;
    const auto reader = files.OpenFolder(folder);
    while (auto entry = reader ? reader->Next() : std::nullopt) {
        if (entry->kind == platform::FolderReader::Kind::File && entry->name.ends_with(".txt")) {
            names.push_back(std::move(entry->name));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

Search::Search(std::string_view query, const std::string& folder, const platform::Files& files)
    : files_(files), alphabet_(LocalAlphabet()), block_(kBlock, '\0') {
    for (const std::string& term : TermsOf(query))
        terms_.emplace_back(term, alphabet_);
    const std::string extracts = folder + kExtracts;
    for (const std::string& name : ExtractsIn(extracts, files_)) {
        if (auto reader = files_.OpenFile(extracts + "\\" + name)) {
            extracts_.push_back(std::move(reader));
        }
    }
}

bool Search::Step() {
    if (extract_ == extracts_.size() || terms_.empty()) return false;
    if (!reader_) reader_ = std::make_unique<RecordReader>(terms_, alphabet_);
    const std::size_t read = extracts_[extract_]->ReadAt(offset_, block_.data(), block_.size());
    offset_ += read;
    reader_->Read(std::string_view(block_.data(), read), pages_);
    for (RecordedPage& page : pages_)
        Take(page);
    pages_.clear();
    if (read == 0) {
        reader_.reset();
        offset_ = 0;
        ++extract_;
    }
    return extract_ < extracts_.size();
}

void Search::Take(RecordedPage& page) {
    hits_.erase(page.path);
    if (page.matches == 0) return;
    hits_.insert_or_assign(
        std::move(page.path),
        Found{page.matches, static_cast<std::uint32_t>(extract_), page.first_match});
    if (hits_.size() > 2 * kMostHits) LeaveOutTheLeast();
}

void Search::LeaveOutTheLeast() {
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
    std::string around(2 * kSnippetReach, '\0');
    around.resize(extracts_[hit.extract]->ReadAt(begin, around.data(), around.size()));
    const auto at = static_cast<std::size_t>(hit.first_match - begin);
    if (at >= around.size()) return {};
    return SnippetAround(around, {at, at}, alphabet_);
}

}  // namespace search
