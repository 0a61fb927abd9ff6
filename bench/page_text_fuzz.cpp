// Feeds random pages to the page text reader to find crashes (libFuzzer, needs clang).
//
//     cmake --preset fuzz && ninja -C build/fuzz page_text_fuzz && build/fuzz/bench/page_text_fuzz

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "page_text/inner_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view page(reinterpret_cast<const char*>(data), size);
    page_text::InnerTextOfMarkup(page);
    page_text::InnerTextOfPlainText(std::string(page));
    return 0;
}
