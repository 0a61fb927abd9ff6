#pragma once

#include <map>
#include <string>

/// Random schedules. This file: the sites that they crawl.
namespace schedules {

/// How a server ends a connection by itself, when nothing else comes in between.
enum class Ending { Close, Silence, Reset, Refusal };

struct Response {
    std::string bytes;
    Ending ending = Ending::Close;
    std::string file;  ///< what the mirror must have after a close; "" where that is open
};

/// Two small sites, of pages that link to each other and to what is missing, cannot be written or
/// lies above the root. No page holds what saving rewrites, line ends and ".php?" aside.
class Sites {
  public:
    /// `large`: how many bytes make a response large. One page of each site has that size.
    Sites(unsigned seed, std::size_t large);

    /// What the servers send to a request for this host and path.
    const Response& At(std::string address) const;

  private:
    std::map<std::string, Response> responses_;
    Response missing_;
};

/// The sites' hosts. A ".." behind the second is asked for, and refused by the engine.
inline constexpr const char* kHosts[] = {"www.site.com", "www.other.de"};

}  // namespace schedules
