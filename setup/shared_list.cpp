#include "setup/shared_list.h"

#include <algorithm>

#include "platform/services.h"
#include "setup/list_file.h"

namespace bas_General {

namespace {

using Lines = SharedList::Lines;

std::optional<Lines> LinesIn(const std::string& path) {
    const std::optional<std::string> bytes = platform::System().files.ReadFile(path);
    return bytes ? std::optional(SplitListFile(*bytes)) : std::nullopt;
}

/// `lines` minus one matching line for each of `gone`.
Lines Without(Lines lines, const Lines& gone) {
    for (const std::string& line : gone) {
        const auto found = std::find(lines.begin(), lines.end(), line);
        if (found != lines.end()) lines.erase(found);
    }
    return lines;
}

}  // namespace

void SharedList::Know() {
    known_ = LinesIn(path_).value_or(Lines());
}

std::optional<Lines> SharedList::WithOthersChanges(const Lines& edited) {
    const std::optional<Lines> now = LinesIn(path_);
    if (!now || *now == known_) return std::nullopt;
    Lines merged = Without(edited, Without(known_, *now));
    const Lines added = Without(*now, known_);
    merged.insert(merged.end(), added.begin(), added.end());
    known_ = *now;
    return merged;
}

}  // namespace bas_General
