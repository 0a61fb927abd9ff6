#include <windows.h>

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "page_text/ascii.h"
#include "page_text/system_encodings.h"

namespace page_text {

namespace {

struct NamedCodePage {
    std::string_view charset;
    unsigned code_page;
};

// Names that do not contain the code page's number.
constexpr NamedCodePage kNamedCodePages[] = {
    {"big5-hkscs", 950}, {"euc-jp", 20932}, {"gb18030", 54936},      {"iso-2022-jp", 50220},
    {"koi8-r", 20866},   {"koi8-u", 21866}, {"mac-cyrillic", 10007}, {"macintosh", 10000},
};

/// The number after `prefix` in `charset`; 0 if `charset` does not start with it.
unsigned NumberAfter(std::string_view prefix, std::string_view charset) {
    unsigned number = 0;
    if (charset.starts_with(prefix)) {
        std::from_chars(charset.data() + prefix.size(), charset.data() + charset.size(), number);
    }
    return number;
}

/// The code page called `charset`; 0 if there is none that this system can convert.
unsigned CodePageOf(std::string_view charset) {
    unsigned code_page = 0;
    for (const NamedCodePage& named : kNamedCodePages) {
        if (charset == named.charset) code_page = named.code_page;
    }
    for (const std::string_view prefix : {"windows-", "cp", "ibm"}) {
        if (code_page == 0) code_page = NumberAfter(prefix, charset);
    }
    if (const unsigned part = NumberAfter("iso-8859-", charset)) code_page = 28590 + part;
    return code_page != 0 && IsValidCodePage(code_page) ? code_page : 0;
}

// The system's calls take sizes as int.
constexpr std::size_t kChunk = std::size_t{1} << 20;

/// Converts `bytes` from one code page to another and appends them to `converted`. Long text is
/// split into chunks, at line ends where possible, so that no character is cut in two.
void Convert(std::string_view bytes, unsigned from, unsigned to, std::string& converted) {
    std::wstring wide;
    while (!bytes.empty()) {
        std::size_t length = std::min(bytes.size(), kChunk);
        if (length < bytes.size()) {
            const std::size_t line_end = bytes.rfind('\n', length - 1);
            if (line_end != std::string_view::npos) length = line_end + 1;
        }
        wide.resize(length);
        const int units = MultiByteToWideChar(from, 0, bytes.data(), static_cast<int>(length),
                                              wide.data(), static_cast<int>(length));
        const int needed =
            WideCharToMultiByte(to, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
        const std::size_t old_size = converted.size();
        converted.resize(old_size + static_cast<std::size_t>(needed));
        WideCharToMultiByte(to, 0, wide.data(), units, converted.data() + old_size, needed, nullptr,
                            nullptr);
        bytes.remove_prefix(length);
    }
}

}  // namespace

std::optional<std::string> ConvertToUtf8(std::string_view bytes, const std::string& charset) {
    const unsigned code_page = CodePageOf(charset);
    if (code_page == 0) return std::nullopt;
    std::string utf8;
    Convert(bytes, code_page, CP_UTF8, utf8);
    return utf8;
}

std::string ToLocalEncoding(std::string utf8) {
    if (GetACP() == CP_UTF8) return utf8;
    std::string local;
    Convert(utf8, CP_UTF8, CP_ACP, local);
    return local;
}

}  // namespace page_text
