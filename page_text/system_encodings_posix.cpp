#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>

#include "page_text/system_encodings.h"
#include "page_text/utf8.h"

namespace page_text {

namespace {

/// An open iconv conversion to UTF-8.
class Converter {
  public:
    explicit Converter(const std::string& charset)
        : handle_(iconv_open("UTF-8", charset.c_str())) {}
    ~Converter() {
        if (IsOpen()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

    /// Converts as much of `bytes` as it can, removes that part and appends the result to `utf8`.
    /// With empty `bytes`, appends a letter that was held back in case an accent follows. Returns
    /// false if it stopped at bytes that are not a character.
    bool Step(std::string_view& bytes, std::string& utf8) {
        std::array<char, 4096> buffer;
        char* in = const_cast<char*>(bytes.data());  // iconv does not write to it.
        std::size_t in_left = bytes.size();
        char* out = buffer.data();
        std::size_t out_left = buffer.size();
        const std::size_t result = bytes.empty() ? iconv(handle_, nullptr, nullptr, &out, &out_left)
                                                 : iconv(handle_, &in, &in_left, &out, &out_left);
        const bool stopped = result == static_cast<std::size_t>(-1) && errno != E2BIG;
        bytes.remove_prefix(bytes.size() - in_left);
        utf8.append(buffer.data(), buffer.size() - out_left);
        return !stopped;
    }

  private:
    iconv_t handle_;
};

}  // namespace

std::optional<std::string> ConvertToUtf8(std::string_view bytes, const std::string& charset) {
    Converter converter(charset);
    if (!converter.IsOpen()) return std::nullopt;
    std::string utf8;
    while (!bytes.empty()) {
        if (converter.Step(bytes, utf8) || bytes.empty()) continue;
        AppendUtf8(kReplacementCharacter, utf8);
        bytes.remove_prefix(1);
    }
    converter.Step(bytes, utf8);
    return utf8;
}

/// POSIX locales use UTF-8, so nothing is converted.
std::string ToLocalEncoding(std::string utf8) {
    return utf8;
}

}  // namespace page_text
