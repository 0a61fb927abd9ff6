#pragma once

#include <cstddef>

/// The crawl engine. This file: how much of the memory the answers may take. Servers send what they
/// like, and one that never ends must not cost the others theirs.
namespace bas_Connections {

/// What all answers together may hold, in bytes: 2 GiB less one. A variable, so that tests can do
/// with small answers.
extern std::size_t MostAnswerBytes;

/// Sees to it that `size` more bytes fit into the answer of slot `index`: where they do not, what
/// idle slots keep is dropped, then the largest answer that is still coming in is given up. False
/// when that is this slot's own.
bool MakeRoom(std::size_t size, int index);

/// Ends the job of slot `index`, whose answer is too large to be held: nothing of it is saved.
void GiveUp(int index);

/// The job of slot `index` is done: what its answer leaves behind is given back when it is large.
void GiveBackLeftover(int index);

}  // namespace bas_Connections
