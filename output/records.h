#pragma once

#include <string>

/// The local mirror. This file: record files, search extract and the sweep of placeholders.
namespace bas_Output {

/// Appends `text` and CR LF to the file of `path`, which becomes a local path first. False when the
/// file could not be written: that costs this one write, nothing else.
bool AppendToFile(const std::string& text, std::string& path);

/// The visible text of the saved page at `path`, on one line. Lets events run.
std::string GetPageText(const std::string& path);

/// Appends the search record of the page at `path`, downloaded by connection `slot`, unless it was
/// the last one recorded.
void RecordSearchText(const std::string& text, int slot, const std::string& path);

/// Deletes the placeholders in every folder that the crawl made.
void RemoveTempFiles();

}  // namespace bas_Output
