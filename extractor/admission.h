#pragma once

#include <string>

#include "crawl/list_items.h"

/// Link extraction. This file: which links enter the queue.
namespace bas_Extractor {

/// Decides about one absolute link: appends it to `queue_list` with its placeholder file and log
/// line, lists it in `List2`, or drops it. Lets events run once after a link was queued.
void AdmitLink(std::string link, crawl::ListItems& queue_list);

/// Whether a keyword filter occurs in the link.
bool IsFiltered(const std::string& link);

/// Whether the link asks a ".php?" page.
bool IsQueryPage(const std::string& link);

/// Whether the link's extension is one of the wanted types.
bool IsListedFileType(const std::string& link);

/// Whether the mirror has a file of this local path, or can have none.
bool FileExists(const std::string& path);

}  // namespace bas_Extractor
