#pragma once

/// The crawl engine. This file: reporting the attempts to fetch an address.
namespace bas_Connections {

/// The last try of slot `index` has failed, and its connection is about to be closed. Does nothing
/// if the slot has no connection, because its job was done before.
void NoteFailedTry(int index);

/// Reports failed connections and their reasons long before their timeouts end them.
void NoteFailedConnections();

/// The response of slot `index` is complete and about to be saved.
void NoteAnswer(int index);

}  // namespace bas_Connections
