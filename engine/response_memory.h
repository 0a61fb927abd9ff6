#pragma once

#include <cstddef>

/// The crawl engine. This file: how much of the memory the responses may take. Servers send what
/// they like, and one that never ends must not cost the others theirs.
namespace bas_Connections {

/// What all responses together may hold, in bytes: 2 GiB less one. A variable, so that tests can do
/// with small responses.
extern std::size_t MostResponseBytes;

/// Sees to it that `size` more bytes fit into the response of slot `index`: where they do not, what
/// idle slots keep is dropped, then the largest response that is still coming in is given up. False
/// when that is this slot's own.
bool MakeRoom(std::size_t size, int index);

/// Ends the job of slot `index`, whose response is too large to be held: nothing of it is saved.
void GiveUp(int index);

/// The job of slot `index` is done: what its response leaves behind is given back when it is large.
void GiveBackLeftover(int index);

}  // namespace bas_Connections
