#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace search {

/// The search extracts of a copy.
struct Extracts {
    enum class State { Readable, NoFolder, NoExtract, Unreadable };
    State state;
    std::vector<std::string> paths;  ///< sorted; some may be unreadable
};

/// Why there is nothing to search, as the end of a sentence; "" if there is something.
std::string_view WhyNothing(Extracts::State state);

/// Finds the extracts of the copy in `folder`, a path with or without a final "\".
Extracts ExtractsOf(const std::string& folder, const platform::Files& files);

}  // namespace search
