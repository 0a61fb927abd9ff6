#pragma once

#include <string>
#include <vector>

/// Site setup. This file: the list of wanted file types and its file.
namespace bas_General {

/// The twelve types that a new list starts with.
std::vector<std::string> DefaultFileTypes();

/// Writes the list, one trimmed entry a line. A fault is passed over silently.
void WriteFileTypes(const std::vector<std::string>& types);

/// The non-blank lines of the file as they stand there; none when it cannot be read.
std::vector<std::string> ReadFileTypes();

/// Gives the list its file, with the default types, when it has none yet; true when it had none. A
/// fault is passed over silently.
bool MakeFirstFileTypesFile();

/// The path text of the list's file.
std::string FileTypesFile();

/// Whether the list names a type that a file can have: a dot, and then printable characters without
/// another dot.
bool AnyFileTypeKnown();

/// The wanted types for a crawl, each lower-cased, trimmed and wrapped in colons; "" without a
/// file.
std::string LoadFileTypes();

}  // namespace bas_General
