#pragma once

/// The crawl engine. This file: what the report is told of the tries to fetch an address.
namespace bas_Connections {

/// The last try of slot `index` came to nothing, and its connection is about to be closed. Passed
/// over when it has none: its job was done before.
void NoteFailedTry(int index);

/// Notes the connections that have failed, and why, long before their timeouts end them.
void NoteFailedConnections();

/// The response of slot `index` is whole and about to be saved.
void NoteAnswer(int index);

}  // namespace bas_Connections
