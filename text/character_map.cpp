#include "text/character_map.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "text/text.h"

namespace text {

namespace {

/// Characters counted per block. Compilers turn plain loops of fixed length into vector
/// instructions.
constexpr std::size_t kBlock = 32;

std::size_t IndexOf(char character) {
    return static_cast<unsigned char>(character);
}

/// Two characters to replace that are less than `kNear` apart suggest a dense stretch: the next
/// `kStretch` characters are mapped one by one instead of searched.
constexpr std::size_t kNear = 8;
constexpr std::size_t kStretch = 16;

/// Finds the next of several characters in a text. Each character is searched for separately.
class NextOf {
  public:
    NextOf(std::string_view subject, std::string_view characters)
        : subject_(subject), characters_(characters) {
        for (std::size_t i = 0; i < characters_.size(); ++i) {
            places_[i] = Search(i, 0);
        }
    }

    /// The first place at or after `at`, or the text's end if there is none. `at` must not decrease
    /// from call to call.
    std::size_t AtOrAfter(std::size_t at) {
        std::size_t nearest = subject_.size();
        for (std::size_t i = 0; i < characters_.size(); ++i) {
            if (places_[i] < at) places_[i] = Search(i, at);
            nearest = std::min(nearest, places_[i]);
        }
        return nearest;
    }

  private:
    std::size_t Search(std::size_t i, std::size_t from) const {
        return std::min(subject_.find(characters_[i], from), subject_.size());
    }

    std::string_view subject_;
    std::string_view characters_;
    std::array<std::size_t, 256> places_;
};

std::size_t CountIn(const char* block, char character) {
    unsigned char count = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
        count = static_cast<unsigned char>(count + (block[i] == character));
    }
    return count;
}

}  // namespace

CharacterMap::CharacterMap() {
    sizes_.fill(1);
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        texts_[i][0] = static_cast<char>(i);
    }
}

bool CharacterMap::Add(char character, std::string_view replacement) {
    CharacterMap added = *this;
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        const char own = static_cast<char>(i);
        if (Of(own).find(character) == std::string_view::npos) continue;
        const std::string text = ReplaceAll(std::string(Of(own)), {&character, 1}, replacement);
        if (text.size() > kLongest) return false;
        text.copy(added.texts_[i].data(), kLongest);
        added.sizes_[i] = static_cast<std::uint8_t>(text.size());
        added.grows_ |= text.size() > 1;
        if (changed_.find(own) == std::string::npos) added.changed_ += own;
    }
    *this = std::move(added);
    return true;
}

std::string_view CharacterMap::Of(char character) const {
    return {texts_[IndexOf(character)].data(), sizes_[IndexOf(character)]};
}

bool CharacterMap::Changes(std::string_view subject) const {
    return std::any_of(changed_.begin(), changed_.end(),
                       [subject](char c) { return subject.find(c) != subject.npos; });
}

void CharacterMap::ApplyTo(std::string& subject) const {
    if (grows_) {
        subject = AppliedTo(subject);
    } else {
        const char* const end = Write(subject, subject.data());
        subject.resize(static_cast<std::size_t>(end - subject.data()));
    }
}

std::string CharacterMap::AppliedTo(std::string_view subject, std::size_t spare) const {
    constexpr std::size_t kPiece = 4096;
    std::array<char, kPiece * kLongest> piece;
    std::string result;
    result.reserve(subject.size() + Growth(subject) + spare);
    for (std::size_t at = 0; at < subject.size(); at += kPiece) {
        const char* const end = Write(subject.substr(at, kPiece), piece.data());
        result.append(piece.data(), static_cast<std::size_t>(end - piece.data()));
    }
    return result;
}

/// The most by which the text can grow. Characters that become shorter are not subtracted.
std::size_t CharacterMap::Growth(std::string_view subject) const {
    std::size_t growth = 0;
    for (const char character : changed_) {
        const std::size_t size = Of(character).size();
        if (size <= 1) continue;
        std::size_t count = 0;
        std::size_t at = 0;
        for (; at + kBlock <= subject.size(); at += kBlock) {
            count += CountIn(subject.data() + at, character);
        }
        count += static_cast<std::size_t>(std::count(
            subject.begin() + static_cast<std::ptrdiff_t>(at), subject.end(), character));
        growth += count * (size - 1);
    }
    return growth;
}

/// Writes what `subject` becomes to `out` and returns the end. `out` may be the start of `subject`
/// itself if nothing becomes longer. Searches for the next character to replace; after a near one
/// it maps a stretch character by character, because more may follow closely.
char* CharacterMap::Write(std::string_view subject, char* out) const {
    NextOf next(subject, changed_);
    for (std::size_t at = 0; at < subject.size();) {
        const std::size_t found = next.AtOrAfter(at);
        if (out != subject.data() + at) std::memmove(out, subject.data() + at, found - at);
        out += found - at;
        const std::size_t end =
            std::min(found + (found - at < kNear ? kStretch : 1), subject.size());
        out = WriteEach(subject.substr(found, end - found), out);
        at = end;
    }
    return out;
}

/// Does what `Write` does, one character at a time. No branch depends on the characters.
char* CharacterMap::WriteEach(std::string_view subject, char* out) const {
    if (!grows_) {
        for (const char character : subject) {
            *out = texts_[IndexOf(character)][0];
            out += sizes_[IndexOf(character)];
        }
        return out;
    }
    for (const char character : subject) {
        // Copies the whole array; the next character overwrites the excess.
        std::memcpy(out, texts_[IndexOf(character)].data(), kLongest);
        out += sizes_[IndexOf(character)];
    }
    return out;
}

}  // namespace text
