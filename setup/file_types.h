#pragma once

#include <string>
#include <vector>

/// Site setup. This file: the list of wanted file types and its file.
namespace bas_General {

/// The twelve types of a new list.
std::vector<std::string> DefaultFileTypes();

/// Writes the list, one trimmed entry per line. Ignores faults.
void WriteFileTypes(const std::vector<std::string>& types);

/// The non-blank lines of the file, unchanged; none if it cannot be read.
std::vector<std::string> ReadFileTypes();

/// Creates the list's file with the default types and returns true if there is none. Ignores
/// faults.
bool MakeFirstFileTypesFile();

/// The path text of the list's file.
std::string FileTypesFile();

/// Whether the list contains a valid type: a dot, followed by printable characters without another
/// dot.
bool AnyFileTypeKnown();

/// The lower-cased type of the file at `address`: the text from its last "." on; "" if that is not
/// a valid type.
std::string FileTypeOf(const std::string& address);

/// Appends those of `types` that the list lacks; the next crawl uses them. Returns whether the list
/// then contains all of them.
bool AddFileTypes(const std::vector<std::string>& types);

/// The wanted types for a crawl, each lower-cased, trimmed and wrapped in colons; "" if there is no
/// file.
std::string LoadFileTypes();

}  // namespace bas_General
