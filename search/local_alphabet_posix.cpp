#include "search/local_alphabet.h"

namespace search {

Alphabet LocalAlphabet() {
    return Alphabet();
}

}  // namespace search
