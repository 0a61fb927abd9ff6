#pragma once

#include <string>

#include "crawl/list_items.h"

/// Link extraction. This file: which links enter the queue.
namespace bas_Extractor {

/// Decides what happens to one absolute link: appends it to `queue_list` with its placeholder file
/// and log line, adds it to `List2`, or drops it. Lets events run once after queuing a link.
void AdmitLink(std::string link, crawl::ListItems& queue_list);

/// Whether the link contains a keyword filter.
bool IsFiltered(const std::string& link);

/// Whether the link requests a ".php?" page.
bool IsQueryPage(const std::string& link);

/// Whether the link's extension is one of the wanted types.
bool IsListedFileType(const std::string& link);

/// Whether the mirror has a file at this local path, or cannot have one.
bool FileExists(const std::string& path);

}  // namespace bas_Extractor
