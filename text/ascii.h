#pragma once

/// Character classes of single bytes. Only A to Z count as letters, so the bytes of other alphabets
/// are never changed.
namespace text {

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace text
