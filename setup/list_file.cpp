#include "setup/list_file.h"

#include <cstddef>

#include "text/text.h"

namespace bas_General {

std::vector<std::string> SplitListFile(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes = end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (!text::Trim(line).empty()) lines.emplace_back(line);
    }
    return lines;
}

std::string JoinListFile(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines) {
        bytes.append(text::Trim(line)).append("\r\n");
    }
    return bytes;
}

}  // namespace bas_General
