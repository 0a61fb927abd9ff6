// Feeds made-up pages to the page text reader, looking for crashes (libFuzzer, needs clang).
//
//     cmake --preset sanitize -DCMAKE_CXX_COMPILER=clang++ && ninja -C build/sanitize
//     inner_text_fuzz

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/inner_text/html_inner_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view page(reinterpret_cast<const char*>(data), size);
    platform::HtmlInnerText page_text;
    page_text.InnerText(std::string(page), platform::PageKind::Markup);
    page_text.InnerText(std::string(page), platform::PageKind::PlainText);
    return 0;
}
