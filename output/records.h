#pragma once

#include <string>

/// The local mirror. This file: record files, the search extract and the sweep of placeholders.
namespace bas_Output {

/// Appends `text` and CR LF to a file. `path` is first made a local path. False if the file cannot
/// be written, which costs only this write.
bool AppendToFile(const std::string& text, std::string& path);

/// The visible text of the saved page at `path`, on one line. Lets events run.
std::string GetPageText(const std::string& path);

/// Appends the search record of the page at `path`, downloaded by connection `slot`, unless it is
/// the page recorded last.
void RecordSearchText(const std::string& text, int slot, const std::string& path);

/// Deletes the placeholders in all folders that the crawl has made.
void RemoveTempFiles();

}  // namespace bas_Output
