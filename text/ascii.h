#pragma once

/// Character classes of single bytes: A to Z only, so that the bytes of other alphabets stay as
/// they are.
namespace text {

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace text
