#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

/// What the *_fuzz programs share.
namespace fuzz {

/// Makes a text of the fuzzer's bytes: those below 128 stand for themselves, 255 makes the next one
/// do so, and the others stand for words, so that what matters is found by chance.
inline std::string TextOf(std::span<const std::uint8_t> bytes,
                          std::span<const std::string_view> words) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == 255 && i + 1 < bytes.size()) {
            text += static_cast<char>(bytes[++i]);
        } else if (bytes[i] < 128) {
            text += static_cast<char>(bytes[i]);
        } else {
            text += words[(bytes[i] - 128U) % words.size()];
        }
    }
    return text;
}

/// Ends the program when the two differ, which the fuzzer takes for a finding.
inline void MustBeEqual(std::string_view what, const std::string& found,
                        const std::string& expected) {
    if (found == expected) return;
    std::fprintf(stderr, "%.*s\n--- found\n%s\n--- expected\n%s\n", static_cast<int>(what.size()),
                 what.data(), found.c_str(), expected.c_str());
    std::abort();
}

}  // namespace fuzz
