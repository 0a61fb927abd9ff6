// Feeds made-up pages to the page text reader, looking for crashes (libFuzzer, needs clang).
//
//     cmake -S . -B build/fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++
//         -DCMAKE_CXX_FLAGS="-O1 -g -fsanitize=address,undefined,fuzzer-no-link"
//     ninja -C build/fuzz page_text_fuzz
//     build/fuzz/bench/page_text_fuzz [FOLDER_OF_PAGES...]

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "page_text/inner_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view page(reinterpret_cast<const char*>(data), size);
    page_text::InnerTextOfMarkup(page);
    page_text::InnerTextOfPlainText(std::string(page));
    return 0;
}
