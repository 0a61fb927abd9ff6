#include "page_text/system_converter.h"

#include <algorithm>
#include <cstddef>

#include "page_text/utf8.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>

#include <array>
#endif

namespace page_text {

#ifdef _WIN32

namespace {

// The system's calls count in int.
constexpr std::size_t kChunk = std::size_t{1} << 20;

/// Puts at most a chunk from the front of `bytes` into `wide`, never half of a two-unit character,
/// and takes it off them.
void TakeWide(std::string_view& bytes, unsigned code_page, std::wstring& wide) {
    std::size_t length = std::min(bytes.size(), kChunk);
    if (code_page == CP_UTF8) {
        while (length < bytes.size() &&
               (static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80) {
            --length;
        }
    }
    wide.resize(length);
    const int units = MultiByteToWideChar(code_page, 0, bytes.data(), static_cast<int>(length),
                                          wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(units));
    bytes.remove_prefix(length);
}

/// Appends `wide` to `bytes` in `code_page`.
void AppendNarrow(const std::wstring& wide, unsigned code_page, std::string& bytes) {
    const int wide_length = static_cast<int>(wide.size());
    const int length =
        WideCharToMultiByte(code_page, 0, wide.data(), wide_length, nullptr, 0, nullptr, nullptr);
    const std::size_t old_size = bytes.size();
    bytes.resize(old_size + static_cast<std::size_t>(length));
    WideCharToMultiByte(code_page, 0, wide.data(), wide_length, bytes.data() + old_size, length,
                        nullptr, nullptr);
}

}  // namespace

SystemConverter::SystemConverter(const Charset& charset) : code_page_(charset.code_page) {}

SystemConverter::~SystemConverter() = default;

bool SystemConverter::Works() const {
    return IsValidCodePage(code_page_) != 0;
}

void SystemConverter::Append(std::string_view bytes, std::string& utf8) {
    while (!bytes.empty()) {
        TakeWide(bytes, code_page_, wide_);
        AppendNarrow(wide_, CP_UTF8, utf8);
    }
}

std::string ToLocalEncoding(std::string utf8) {
    if (GetACP() == CP_UTF8) return utf8;
    std::string local;
    std::wstring wide;
    for (std::string_view rest = utf8; !rest.empty();) {
        TakeWide(rest, CP_UTF8, wide);
        AppendNarrow(wide, CP_ACP, local);
    }
    return local;
}

#else

SystemConverter::SystemConverter(const Charset& charset)
    : handle_(iconv_open("UTF-8", charset.name)) {}

SystemConverter::~SystemConverter() {
    if (Works()) iconv_close(handle_);
}

bool SystemConverter::Works() const {
    return handle_ != reinterpret_cast<void*>(-1);
}

void SystemConverter::Append(std::string_view bytes, std::string& utf8) {
    constexpr auto kFault = static_cast<std::size_t>(-1);
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char* in = const_cast<char*>(bytes.data());  // Only read, whatever the signature says.
    std::size_t in_left = bytes.size();
    std::array<char, 4096> buffer;
    for (bool more = true; more;) {
        more = in_left > 0;
        char* out = buffer.data();
        std::size_t out_left = buffer.size();
        // The last turn asks for a letter that was held back to be joined with a following accent.
        const std::size_t result =
            iconv(handle_, more ? &in : nullptr, more ? &in_left : nullptr, &out, &out_left);
        utf8.append(buffer.data(), buffer.size() - out_left);
        // A full buffer is no fault, and a fault leaves room for at least one more character.
        if (more && result == kFault && out_left >= 16 && in_left > 0) {
            AppendUtf8(kReplacementCharacter, utf8);
            ++in;
            --in_left;
        }
    }
}

/// The systems other than Windows have come to use UTF-8.
std::string ToLocalEncoding(std::string utf8) {
    return utf8;
}

#endif

}  // namespace page_text
