#include "text/text.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "text/ascii.h"

namespace text {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// How many adjacent places are compared at once.
constexpr std::size_t kBlock = 64;

/// Those of `kBlock` adjacent places that hold `head` and, `distance` further on, `tail`. Compilers
/// turn the plain loop of fixed length into vector instructions.
class Candidates {
  public:
    Candidates(const char* place, char head, std::size_t distance, char tail) {
        unsigned char any = 0;
        for (std::size_t i = 0; i < kBlock; ++i) {
            marks_[i] =
                static_cast<unsigned char>((place[i] == head) & (place[i + distance] == tail));
            any |= marks_[i];
        }
        any_ = any != 0;
    }

    /// The first one at or after `from`; `kBlock` if there is none.
    std::size_t Next(std::size_t from) const {
        if (!any_ || from == kBlock) return kBlock;
        const void* const found = std::memchr(marks_.data() + from, 1, kBlock - from);
        if (found == nullptr) return kBlock;
        return static_cast<std::size_t>(static_cast<const unsigned char*>(found) - marks_.data());
    }

  private:
    std::array<unsigned char, kBlock> marks_;
    bool any_;
};

/// Whether `pattern`, which is not empty, is at `place`. The caller makes sure that it fits before
/// the text's end.
inline bool IsAt(const char* place, std::string_view pattern) {
    return *place == pattern.front() && place[pattern.size() - 1] == pattern.back() &&
           (pattern.size() == 2 || std::memcmp(place, pattern.data(), pattern.size()) == 0);
}

/// Offset of the first `pattern` at or after offset `from`, or kNone. The pattern is not empty.
///
/// Responses of any size and content go through dozens of passes while the window waits, so no
/// input may make this slow. The standard library searches for the first character alone, which is
/// a hundred times slower on a run of blanks than on ordinary text. Searching for the first and the
/// last together costs about the same on any input.
std::size_t Find(std::string_view subject, std::string_view pattern, std::size_t from) {
    if (pattern.size() == 1) return subject.find(pattern[0], from);
    if (subject.size() < pattern.size()) return kNone;
    const std::size_t places = subject.size() - pattern.size() + 1;
    const std::size_t distance = pattern.size() - 1;
    const char* const begin = subject.data();
    std::size_t at = from;
    for (; at + kBlock <= places; at += kBlock) {
        const Candidates candidates(begin + at, pattern.front(), distance, pattern.back());
        for (std::size_t i = 0; (i = candidates.Next(i)) < kBlock; ++i) {
            if (IsAt(begin + at + i, pattern)) return at + i;
        }
    }
    // For the short remainder, and for the many short texts, the library's search is fast enough.
    return at < places ? subject.find(pattern, at) : kNone;
}

std::size_t Count(std::string_view subject, std::string_view pattern, std::size_t first) {
    std::size_t count = 0;
    for (std::size_t at = first; at != kNone; at = Find(subject, pattern, at + pattern.size())) {
        ++count;
    }
    return count;
}

/// Writes `subject`, with every `pattern` from offset `first` on replaced, to `out` and returns the
/// end of what it wrote. `out` may lie in the same buffer as `subject` if writing never overtakes
/// reading. Occurrences may be dense, so after a near one the next block is compared character by
/// character.
char* WriteReplaced(std::string_view subject, std::string_view pattern,
                    std::string_view replacement, std::size_t first, char* out) {
    constexpr std::size_t kNear = 16;
    const auto put = [&out](std::string_view piece) {
        if (piece.data() != out) std::memmove(out, piece.data(), piece.size());
        out += piece.size();
    };
    const std::size_t places = subject.size() - pattern.size() + 1;
    std::size_t at = 0;
    for (std::size_t found = first; found != kNone; found = Find(subject, pattern, at)) {
        const std::size_t length = found - at < kNear ? kBlock : 1;
        put(subject.substr(at, found - at));
        at = found;
        for (const std::size_t end = std::min(found + length, places); at < end;) {
            if (!IsAt(subject.data() + at, pattern)) {
                *out++ = subject[at++];
                continue;
            }
            if (replacement.size() == 1) {  // frequent, and avoids a call
                *out = replacement.front();
            } else {
                std::copy(replacement.begin(), replacement.end(), out);
            }
            out += replacement.size();
            at += pattern.size();
        }
    }
    put(subject.substr(at));
    return out;
}

/// For a replacement longer than the pattern. Allocates one copy of exactly the size needed, or
/// none if the buffer has room. In that case the text first moves to the buffer's end, so that
/// writing stays behind reading.
void ReplaceGrowing(std::string& subject, std::string_view pattern, std::string_view replacement,
                    std::size_t first) {
    const std::size_t old_size = subject.size();
    const std::size_t growth =
        Count(subject, pattern, first) * (replacement.size() - pattern.size());
    if (old_size + growth > subject.capacity()) {
        std::string grown(old_size + growth, '\0');
        WriteReplaced(subject, pattern, replacement, first, grown.data());
        subject.swap(grown);
        return;
    }
    subject.resize(old_size + growth);
    std::copy_backward(subject.data(), subject.data() + old_size, subject.data() + subject.size());
    WriteReplaced(std::string_view(subject).substr(growth), pattern, replacement, first,
                  subject.data());
}

template <typename Change>
std::string Mapped(std::string_view subject, Change change) {
    std::string result(subject);
    for (char& c : result) {
        c = change(c);
    }
    return result;
}

}  // namespace

std::size_t InStr(std::string_view subject, std::string_view pattern, std::size_t from) {
    if (pattern.empty()) return 0;
    const std::size_t at = Find(subject, pattern, from > 0 ? from - 1 : 0);
    return at == kNone ? 0 : at + 1;
}

bool Contains(std::string_view subject, std::string_view pattern) {
    return InStr(subject, pattern) != 0;
}

std::string_view Mid(std::string_view subject, std::size_t start, std::size_t length) {
    const std::size_t offset = start > 0 ? start - 1 : 0;
    return offset < subject.size() ? subject.substr(offset, length) : std::string_view();
}

std::string_view Left(std::string_view subject, std::size_t length) {
    return subject.substr(0, length);
}

std::string_view Trim(std::string_view subject) {
    const std::size_t begin = subject.find_first_not_of(' ');
    if (begin == kNone) return {};
    return subject.substr(begin, subject.find_last_not_of(' ') - begin + 1);
}

std::string LowerCase(std::string_view subject) {
    return Mapped(subject, LowerLetter);
}

std::string UpperCase(std::string_view subject) {
    return Mapped(subject, [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
}

bool ReplaceAllIn(std::string& subject, std::string_view pattern, std::string_view replacement) {
    if (pattern.empty()) return false;
    const std::size_t first = Find(subject, pattern, 0);
    if (first == kNone) return false;
    if (replacement.size() > pattern.size()) {
        ReplaceGrowing(subject, pattern, replacement, first);
    } else if (pattern.size() == 1 && replacement.size() == 1) {
        // Single characters can be dense, so they are not searched for one by one.
        std::replace(subject.begin(), subject.end(), pattern[0], replacement[0]);
    } else if (pattern.size() == 1) {
        std::erase(subject, pattern[0]);
    } else {
        const char* const end = WriteReplaced(subject, pattern, replacement, first, subject.data());
        subject.resize(static_cast<std::size_t>(end - subject.data()));
    }
    return true;
}

std::string ReplaceAll(std::string subject, std::string_view pattern,
                       std::string_view replacement) {
    ReplaceAllIn(subject, pattern, replacement);
    return subject;
}

}  // namespace text
