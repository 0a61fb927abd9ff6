#include "platform/inner_text/html_inner_text.h"

#include "platform/inner_text/charsets.h"
#include "platform/inner_text/decoder.h"
#include "platform/inner_text/host_converter.h"
#include "platform/inner_text/page_reader.h"
#include "platform/inner_text/text_assembler.h"

namespace platform {

namespace {

using namespace inner_text;

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

std::string MarkupText(std::string_view bytes, Decoder& decoder) {
    if (decoder.KeepsMarkup()) return PageReader(bytes, decoder).Read();
    const std::string utf8 = DecodeWhole(bytes, decoder);
    Decoder plain({Charset::Family::kUtf8});
    return PageReader(utf8, plain).Read();
}

}  // namespace

std::string HtmlInnerText::InnerText(std::string_view file_bytes, PageKind kind) {
    const bool is_markup = kind == PageKind::Markup;
    const DetectedCharset detected = DetectCharset(file_bytes, is_markup);
    Decoder decoder(detected.charset);
    file_bytes.remove_prefix(detected.mark_length);
    return ToLocalEncoding(is_markup ? MarkupText(file_bytes, decoder)
                                     : PlainText(file_bytes, decoder));
}

}  // namespace platform
