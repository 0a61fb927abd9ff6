#include "search/pair_scan.h"

#include <cstring>

namespace search {

namespace {

constexpr char kCaseBit = 0x20;
constexpr std::size_t kNone = std::string_view::npos;

char WithoutCase(char c) {
    return static_cast<char>(c | kCaseBit);
}

}  // namespace

PairScan::PairScan(char first, char second)
    : first_(WithoutCase(first)), second_(WithoutCase(second)) {}

void PairScan::Begin(std::string_view text) {
    text_ = text;
    begin_ = kNone;
}

/// Sets the mark of each byte of the block at `begin` where the pair is.
void PairScan::Mark(std::size_t begin) {
    begin_ = begin;
    std::array<char, kBlock + 1> bytes{};
    const std::string_view block = text_.substr(begin, bytes.size());
    std::memcpy(bytes.data(), block.data(), block.size());
    // Local copies and a fixed length let the compiler compare many bytes at once.
    const char first = first_;
    const char second = second_;
    std::array<char, kBlock> marks;
    for (std::size_t i = 0; i < kBlock; ++i) {
        marks[i] = static_cast<char>((WithoutCase(bytes[i]) == first) &
                                     (WithoutCase(bytes[i + 1]) == second));
    }
    marks_ = marks;
}

std::size_t PairScan::From(std::size_t at) {
    for (; at < text_.size(); at = begin_ + kBlock) {
        if (begin_ == kNone || at >= begin_ + kBlock) Mark(at);
        const std::size_t from = at - begin_;
        const void* const found = std::memchr(marks_.data() + from, 1, kBlock - from);
        if (found != nullptr) {
            return begin_ +
                   static_cast<std::size_t>(static_cast<const char*>(found) - marks_.data());
        }
    }
    return kNone;
}

}  // namespace search
