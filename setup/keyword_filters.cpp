#include "setup/keyword_filters.h"

#include <algorithm>
#include <cstddef>

#include "platform/services.h"
#include "setup/list_file.h"
#include "setup/shared_list.h"
#include "text/text.h"

namespace bas_General {

text::OneBased<std::string, 100> KeywordFilters;

namespace {

constexpr std::size_t kMostFilters = decltype(KeywordFilters)::kCount;

std::string FiltersFile() {
    return platform::System().files.ProgramFolder() + "\\filters.txt";
}

SharedList& SharedFilters() {
    static SharedList file(FiltersFile());
    return file;
}

void SetKeywordFilters(const std::vector<std::string>& keywords) {
    ClearKeywordFilters();
    std::copy(keywords.begin(), keywords.end(), KeywordFilters.begin());
}

std::string Normalized(const std::string& keyword) {
    const std::string lowered = text::LowerCase(keyword);
    return std::string(text::Trim(lowered));
}

}  // namespace

void LoadKeywordFilters() {
    ClearKeywordFilters();
    SharedFilters().Know();
    std::vector<std::string> keywords =
        SplitListFile(platform::System().files.ReadFile(FiltersFile()).value_or(""));
    if (keywords.size() > kMostFilters) return;
    for (std::string& keyword : keywords) {
        keyword = std::string(text::Trim(keyword));
    }
    SetKeywordFilters(keywords);
}

void ClearKeywordFilters() {
    for (std::string& filter : KeywordFilters) {
        filter.clear();
    }
}

bool FilterExists(const std::string& keyword, const std::vector<std::string>& list) {
    const std::string wanted = Normalized(keyword);
    return std::any_of(list.begin(), list.end(),
                       [&wanted](const std::string& item) { return Normalized(item) == wanted; });
}

void StoreKeywordFilters(const std::vector<std::string>& list) {
    std::vector<std::string> keywords;
    for (const std::string& item : list) {
        // A blank entry would not survive the next start.
        if (!text::Trim(item).empty() && keywords.size() < kMostFilters) keywords.push_back(item);
    }
    SetKeywordFilters(keywords);
    platform::System().files.WriteFile(FiltersFile(), {JoinListFile(keywords)});
    SharedFilters().Know();
}

std::optional<std::vector<std::string>> WithOthersKeywords(const std::vector<std::string>& edited) {
    return SharedFilters().WithOthersChanges(edited);
}

}  // namespace bas_General
