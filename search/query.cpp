#include "search/query.h"

#include <algorithm>
#include <cstddef>

namespace search {

std::vector<std::string> TermsOf(std::string_view query) {
    std::vector<std::string> terms;
    std::string term;
    bool in_phrase = false;
    const auto end_term = [&] {
        if (!term.empty() && std::find(terms.begin(), terms.end(), term) == terms.end()) {
            terms.push_back(term);
        }
        term.clear();
    };
    for (const char c : query) {
        if (c == '"') {
            end_term();
            in_phrase = !in_phrase;
        } else if (c == ' ' && !in_phrase) {
            end_term();
        } else {
            term += c;
        }
    }
    end_term();
    return terms;
}

}  // namespace search
