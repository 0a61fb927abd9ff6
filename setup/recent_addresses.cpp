#include "setup/recent_addresses.h"

#include <algorithm>
#include <cstddef>

#include "setup/list_file.h"
#include "setup/settings.h"
#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_General {

namespace {

constexpr char kKey[] = "RecentURLs";
constexpr std::size_t kMost = 50;
/// Nobody types longer addresses, and this keeps the settings small.
constexpr std::size_t kLongest = 1000;

bool IsOneLine(const std::string& address) {
    return std::ranges::none_of(address, [](char c) { return c >= 0 && c < ' '; });
}

}  // namespace

std::vector<std::string> RecentAddresses() {
    return SplitListFile(ReadSetting(kKey, ""));
}

void NoteAddress(const std::string& typed) {
    const std::string address(text::Trim(text::WithoutHttp(text::Trim(typed))));
    if (address.empty() || address.size() > kLongest || !IsOneLine(address)) return;
    std::vector<std::string> addresses = RecentAddresses();
    std::erase(addresses, address);
    addresses.insert(addresses.begin(), address);
    if (addresses.size() > kMost) addresses.resize(kMost);
    PutSetting(kKey, JoinListFile(addresses));
}

}  // namespace bas_General
