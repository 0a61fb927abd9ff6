// Prints the visible text of pages, for comparing it with a browser's.
//
// Reads one file name a line; answers each with the text's length in bytes on a line, the text, and
// a line end. Names that end in ".txt" are plain text.

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "platform/inner_text/html_inner_text.h"

int main() {
    platform::HtmlInnerText page_text;
    for (std::string path; std::getline(std::cin, path);) {
        std::ifstream file(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        const auto kind =
            path.ends_with(".txt") ? platform::PageKind::PlainText : platform::PageKind::Markup;
        const std::string text = page_text.InnerText(bytes, kind);
        std::cout << text.size() << '\n' << text << '\n' << std::flush;
    }
}
