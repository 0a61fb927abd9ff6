// Searches random extracts in blocks of random sizes for random words, and compares the pages found
// with those of a plain reading of the whole text (libFuzzer).
//
//     cmake --preset fuzz && ninja -C build/fuzz search_fuzz && build/fuzz/bench/search_fuzz
#include <algorithm>
#include <cstddef>
#include <vector>

#include "bench/fuzz_input.h"
#include "search/query.h"
#include "search/record_reader.h"
#include "search/snippet.h"

namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view kWords[] = {"\n"sv,       "\n! a\n"sv,   "\r\n"sv,     "\r\n! B\r\n"sv,
                                       "\0"sv,       "k"sv,         "K"sv,        "\xE2\x84\xAA"sv,
                                       "\xC3\xA9"sv, "\xC3\x89"sv,  "\xE2\x84"sv, "\xFF"sv,
                                       "\""sv,       "abcabcabd"sv, "! "sv,       "ab"sv};

/// A text as the alphabet reads it: folded characters, and where each starts.
struct Characters {
    std::u32string folded;
    std::vector<std::size_t> starts;
};

Characters CharactersOf(std::string_view text, const search::Alphabet& alphabet) {
    Characters characters;
    for (std::size_t at = 0; at < text.size();) {
        const search::Character character = alphabet.CharacterAt(text, at);
        characters.folded += character.folded;
        characters.starts.push_back(at);
        at += character.length;
    }
    return characters;
}

search::RecordedPage PlainPage(std::string_view path, std::string_view text, std::size_t offset,
                               const std::vector<std::u32string>& terms,
                               const search::Alphabet& alphabet) {
    search::RecordedPage page{std::string(path)};
    const auto [folded, starts] = CharactersOf(text, alphabet);
    for (const auto& term : terms) {
        if (folded.find(term) == folded.npos) return page;
    }
    for (std::size_t at = 0; at < folded.size();) {
        std::size_t longest = 0;
        for (const auto& term : terms) {
            if (folded.compare(at, term.size(), term) == 0)
                longest = std::max(longest, term.size());
        }
        if (longest > 0 && page.matches++ == 0) page.first_match = offset + starts[at];
        at += std::max<std::size_t>(longest, 1);
    }
    return page;
}

std::vector<search::RecordedPage> PlainPages(std::string_view extract,
                                             const std::vector<std::u32string>& terms,
                                             const search::Alphabet& alphabet) {
    std::vector<search::RecordedPage> pages;
    std::string_view path;
    bool in_record = false;
    for (std::size_t begin = 0, end; (end = extract.find('\n', begin)) != extract.npos;
         begin = end + 1) {
        std::string_view line = extract.substr(begin, end - begin);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (in_record) {
            if (!line.empty()) pages.push_back(PlainPage(path, line, begin, terms, alphabet));
            in_record = false;
        } else if (extract.substr(begin).starts_with("! ")) {
            path = line.substr(2);
            in_record = true;
        }
    }
    return pages;
}

std::string Told(const std::vector<search::RecordedPage>& pages) {
    std::string told;
    for (const auto& page : pages) {
        told += page.path + ": " + std::to_string(page.matches);
        if (page.matches > 0) told += " from " + std::to_string(page.first_match);
        told += "\n";
    }
    return told;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::size_t block = data[0] % 64 + 1U;
    const std::size_t query_size = std::min<std::size_t>(data[1] % 16, size - 2);
    const std::string query = fuzz::TextOf({data + 2, query_size}, kWords);
    const std::string extract =
        fuzz::TextOf({data + 2 + query_size, size - 2 - query_size}, kWords);

    const search::Alphabet utf8;
    std::vector<search::Term> terms;
    std::vector<std::u32string> plain_terms;
    for (const std::string& term : search::TermsOf(query)) {
        terms.emplace_back(term, utf8);
        plain_terms.push_back(CharactersOf(term, utf8).folded);
    }
    if (terms.empty()) return 0;

    search::RecordReader reader(terms, utf8);
    std::vector<search::RecordedPage> pages;
    for (std::size_t at = 0; at < extract.size(); at += block)
        reader.Read(std::string_view(extract).substr(at, block), pages);
    fuzz::MustBeEqual("pages", Told(pages), Told(PlainPages(extract, plain_terms, utf8)));

    for (const search::RecordedPage& page : pages) {
        if (page.matches == 0) continue;
        const auto begin = static_cast<std::size_t>(page.first_match);
        const std::string snippet = search::SnippetAround(extract, {begin, begin + 1}, utf8);
        if (CharactersOf(snippet, utf8).folded.size() > search::kSnippetCharacters) std::abort();
    }
    return 0;
}
