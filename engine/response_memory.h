#pragma once

#include <cstddef>

/// The crawl engine. This file: limiting the memory of the responses. A server may send any amount,
/// and one endless response must not cost the other connections theirs.
namespace bas_Connections {

/// The most bytes that all responses together may take: 2 GiB less one byte. It is a variable, so
/// that tests can use small responses.
extern std::size_t MostResponseBytes;

/// Makes room for `size` more bytes in the response of slot `index`. First drops what idle slots
/// keep, then gives up the largest responses that are still being received. Returns false if that
/// includes this slot's own.
bool MakeRoom(std::size_t size, int index);

/// Ends the job of slot `index` because its response is too large to keep. Nothing of it is saved.
void GiveUp(int index);

/// The job of slot `index` is done. Frees what is left of its response if that is large.
void GiveBackLeftover(int index);

}  // namespace bas_Connections
