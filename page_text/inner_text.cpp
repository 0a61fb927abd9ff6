#include "page_text/inner_text.h"

#include <utility>

#include "page_text/charsets.h"
#include "page_text/decoder.h"
#include "page_text/page_reader.h"
#include "page_text/system_converter.h"
#include "page_text/text_assembler.h"
#include "page_text/utf8.h"
#include "text/text.h"

namespace page_text {

namespace {

std::string DecodeWhole(std::string_view bytes, Decoder& decoder) {
    std::string utf8;
    while (!bytes.empty()) {
        bytes.remove_prefix(decoder.DecodeSome(bytes, utf8));
    }
    return utf8;
}

/// A text file is shown as it is, but for its line ends.
std::string PlainText(std::string_view bytes, Decoder& decoder) {
    TextAssembler assembler(bytes.size());
    std::string piece;
    while (!bytes.empty()) {
        piece.clear();
        bytes.remove_prefix(decoder.DecodeSome(bytes, piece));
        assembler.Text(piece, Spaces::kKeep);
    }
    return assembler.Take();
}

/// The same for a file that needs no decoding, without another copy of it.
std::string PlainUtf8(std::string bytes) {
    text::ReplaceAllIn(bytes, "\r\n", "\n");
    text::ReplaceAllIn(bytes, "\r", "\n");
    return bytes;
}

bool IsUtf8(const DetectedCharset& detected, std::string_view bytes) {
    return detected.charset.family == Charset::Family::kUtf8 && detected.mark_length == 0 &&
           ValidUtf8Length(bytes) == bytes.size();
}

std::string MarkupText(std::string_view bytes, Decoder& decoder,
                       const std::function<void()>& yield) {
    if (decoder.KeepsMarkup()) return PageReader(bytes, decoder).Read(yield);
    const std::string utf8 = DecodeWhole(bytes, decoder);
    Decoder plain({Charset::Family::kUtf8});
    return PageReader(utf8, plain).Read(yield);
}

}  // namespace

std::string InnerTextOfMarkup(std::string_view file_bytes, const std::function<void()>& yield) {
    const DetectedCharset detected = DetectCharset(file_bytes, /*is_markup=*/true);
    Decoder decoder(detected.charset);
    return ToLocalEncoding(MarkupText(file_bytes.substr(detected.mark_length), decoder, yield));
}

std::string InnerTextOfPlainText(std::string file_bytes) {
    const DetectedCharset detected = DetectCharset(file_bytes, /*is_markup=*/false);
    if (IsUtf8(detected, file_bytes)) return ToLocalEncoding(PlainUtf8(std::move(file_bytes)));
    Decoder decoder(detected.charset);
    return ToLocalEncoding(
        PlainText(std::string_view(file_bytes).substr(detected.mark_length), decoder));
}

}  // namespace page_text
