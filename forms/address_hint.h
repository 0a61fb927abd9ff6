#pragma once

#include <string>

namespace ui {

/// What a crawl started with `typed` will ask for, in one line; with what this program cannot do
/// about it in front, where that is the case.
std::string AddressHint(const std::string& typed);

}  // namespace ui
