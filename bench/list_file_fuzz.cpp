// Reads random list files, compares the results with a simple reader's, and writes them back
// (libFuzzer).
//
//     cmake --preset fuzz && ninja -C build/fuzz list_file_fuzz && build/fuzz/bench/list_file_fuzz
#include <sstream>
#include <vector>

#include "bench/fuzz_input.h"
#include "setup/file_types.h"
#include "setup/keyword_filters.h"
#include "tests/fakes/fake_system.h"

namespace {

using Lines = std::vector<std::string>;
using std::string_view_literals::operator""sv;

constexpr std::string_view kWords[] = {
    "\r\n"sv,  "\n"sv,   "\r"sv, " "sv,
    ".html"sv, ".GIF"sv, ":"sv,  "a\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk\nl\nm\nn\no\np\nq\nr\ns\n"sv};

std::string WithoutBlanksAround(const std::string& line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first == line.npos ? "" : line.substr(first, line.find_last_not_of(' ') - first + 1);
}

std::string LowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

/// The non-blank lines, each without blanks at its ends.
Lines PlainLines(const std::string& bytes) {
    Lines lines;
    std::istringstream stream(bytes);
    for (std::string line; std::getline(stream, line);) {
        // Only the line end is CR LF; any other CR belongs to the line.
        if (line.ends_with('\r')) line.pop_back();
        line = WithoutBlanksAround(line);
        if (!line.empty()) lines.push_back(line);
    }
    return lines;
}

std::string Joined(const Lines& lines, const std::string& before, const std::string& after) {
    std::string joined;
    for (const std::string& line : lines) {
        joined += before + line + after;
    }
    return joined;
}

Lines Filters() {
    Lines filters(bas_General::KeywordFilters.begin(), bas_General::KeywordFilters.end());
    while (!filters.empty() && filters.back().empty())
        filters.pop_back();
    return filters;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = fuzz::TextOf({data, size}, kWords);
    const Lines lines = PlainLines(bytes);
    const std::string written = Joined(lines, "", "\r\n");
    fakes::FakeSystem system;

    const std::string types_file = "c:\\program\\temp\\filetypes.txt";
    system.files.Have(types_file, bytes);
    const std::string set = LowerCase(Joined(lines, ":", ":"));
    fuzz::MustBeEqual("types", bas_General::LoadFileTypes(), set);
    bas_General::WriteFileTypes(bas_General::ReadFileTypes());
    fuzz::MustBeEqual("types written", system.files.At(types_file), written);
    fuzz::MustBeEqual("types read again", bas_General::LoadFileTypes(), set);

    const std::string filters_file = "c:\\program\\filters.txt";
    system.files.Have(filters_file, bytes);
    bas_General::LoadKeywordFilters();
    const Lines kept = lines.size() > 100 ? Lines() : lines;
    fuzz::MustBeEqual("filters", Joined(Filters(), "", "\r\n"), Joined(kept, "", "\r\n"));
    bas_General::StoreKeywordFilters(kept);
    fuzz::MustBeEqual("filters written", system.files.At(filters_file), Joined(kept, "", "\r\n"));
    return 0;
}
