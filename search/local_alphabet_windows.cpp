#include <windows.h>

#include <cstddef>

#include "search/local_alphabet.h"

namespace search {

Alphabet LocalAlphabet() {
    if (GetACP() == CP_UTF8) return Alphabet();
    std::array<unsigned char, 256> folded;
    for (std::size_t byte = 0; byte < folded.size(); ++byte) {
        auto letter = static_cast<char>(byte);
        if (!IsDBCSLeadByte(static_cast<BYTE>(byte))) CharLowerBuffA(&letter, 1);
        folded[byte] = static_cast<unsigned char>(letter);
    }
    return Alphabet(folded);
}

}  // namespace search
