#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "crawl/list_items.h"
#include "crawl/report.h"
#include "text/consumable_text.h"
#include "text/one_based.h"

/// The variables of the crawl. They live as long as the process and contain data only, so that the
/// mirror and the link extraction can read them without depending on the engine.
namespace crawl {

inline constexpr int kSlotCount = 24;

/// One connection: what it fetches and what it has received.
struct ConnectionSlot {
    std::string Url;   ///< host and path without scheme; not empty while the slot holds a job
    std::string Host;  ///< the part of Url before the first "/"
    std::string Path;  ///< the rest, starting with "/"
    text::ConsumableText Response;   ///< header and body as received; "CANCEL" if given up
    std::int32_t ContentLength = 0;  ///< the last "Content-Length:" seen, in bytes
    std::int32_t BytesReceived = 0;
    std::int16_t Attempts = 0;    ///< connection attempts for this job, from 1
    unsigned Job = 1;             ///< incremented when a job starts and when one is ended early
    unsigned JobAtWork = 0;       ///< the job whose response is being processed; 0 for none
    std::size_t Row = kNoRow;     ///< the address's row in the report
    std::size_t AnswerStart = 0;  ///< the length of what earlier tries left in the response
};

/// A slot is free when its socket is closed. Its fields keep the last job until it is reused.
extern text::OneBased<ConnectionSlot, kSlotCount> Slots;

extern std::string SiteHost;      ///< the start address's host without "www."
extern std::string TargetFolder;  ///< where the mirror goes, ending in "\"
extern std::string FileTypeSet;   ///< wanted extensions, each wrapped in colons

extern std::string SavePath;              ///< the last local path that was made
extern std::string SavePathBeforeRename;  ///< the same before ".html" was appended
extern std::string MadeFolders;  ///< the folders this crawl made, lower-cased, each followed by "*"
extern std::string LastSearchPage;  ///< the last recorded page, between colons

extern std::int32_t TotalBytes;  ///< bytes received over all connections
extern std::int32_t FilesDone;   ///< files saved
extern bool Stopping;            ///< the window is being reloaded after a stop and must not ask

extern crawl::ListItems List1;  ///< the queue, worked from its end
extern crawl::ListItems List2;  ///< links on the site whose type is not wanted

extern AddressReport Report;      ///< what became of each address
extern std::string ReportFolder;  ///< the target folder of the reported crawl

}  // namespace crawl
