// Prints the visible text of pages, to compare it with a browser's.
//
// Reads one file name per line. Answers each with a line containing the text's length in bytes,
// then the text and a line end. Files whose names end with ".txt" are plain text.

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "page_text/inner_text.h"

int main() {
    for (std::string path; std::getline(std::cin, path);) {
        std::ifstream file(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        const std::string text = path.ends_with(".txt") ? page_text::InnerTextOfPlainText(bytes)
                                                        : page_text::InnerTextOfMarkup(bytes);
        std::cout << text.size() << '\n' << text << '\n' << std::flush;
    }
}
