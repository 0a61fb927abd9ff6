#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

/// Shared by the *_fuzz programs.
namespace fuzz {

/// Turns the fuzzer's bytes into a text. A byte below 128 stands for itself, and so does any byte
/// after a 255. The others stand for words, so that interesting text turns up by chance.
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

/// Aborts if the two differ, which the fuzzer reports as a finding.
inline void MustBeEqual(std::string_view what, const std::string& found,
                        const std::string& expected) {
    if (found == expected) return;
    std::fprintf(stderr, "%.*s\n--- found\n%s\n--- expected\n%s\n", static_cast<int>(what.size()),
                 what.data(), found.c_str(), expected.c_str());
    std::abort();
}

}  // namespace fuzz
