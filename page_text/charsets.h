#pragma once

#include <cstddef>
#include <string_view>

namespace page_text {

/// An encoding that pages are written in.
struct Charset {
    enum class Family {
        kUtf8,
        kWindows1252,
        kAsciiBased,  ///< One or more bytes a character; "<", ">" and "&" are always themselves.
        kEscaped,     ///< Switches by escape codes, so bytes do not stand for themselves.
        kUtf16LittleEndian,
        kUtf16BigEndian,
    };
    Family family;
    /// What the system's converter calls it, by name or by Windows code page; for the families that
    /// need the system.
    const char* name = "";
    unsigned code_page = 0;
};

/// The encoding that a page means by `label`; null for a label that browsers do not know either.
/// Only these names ever reach the system's converter.
const Charset* FindCharset(std::string_view label);

/// What a page's bytes say about themselves.
struct DetectedCharset {
    Charset charset;
    std::size_t mark_length = 0;  ///< Bytes of the byte order mark in front of the text.
};

/// The encoding of `bytes`: by byte order mark, else by what the page's head declares when it
/// `is_markup`, else UTF-8 if they are valid, else Windows-1252.
DetectedCharset DetectCharset(std::string_view bytes, bool is_markup);

}  // namespace page_text
