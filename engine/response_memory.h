#pragma once

#include <cstddef>

/// The crawl engine. This file: limiting the memory of the responses. Servers send what they like,
/// and one endless response must not cost the others theirs.
namespace bas_Connections {

/// The most bytes that all responses together may take: 2 GiB less one. A variable, so that tests
/// can use small responses.
extern std::size_t MostResponseBytes;

/// Makes room for `size` more bytes in the response of slot `index`. First drops what idle slots
/// keep, then gives up the largest response that is still being received. False if that is this
/// slot's own.
bool MakeRoom(std::size_t size, int index);

/// Ends the job of slot `index` because its response is too large to keep. Nothing of it is saved.
void GiveUp(int index);

/// The job of slot `index` is done. Frees what is left of its response if that is large.
void GiveBackLeftover(int index);

}  // namespace bas_Connections
