#pragma once

#include <map>
#include <string>

/// The sites that random schedules crawl.
namespace schedules {

/// How a server ends a connection, unless another event comes first.
enum class Ending { Close, Silence, Reset, Refusal };

struct Response {
    std::string bytes;
    Ending ending = Ending::Close;
    std::string file;  ///< what the mirror must have after a close; "" if undetermined
};

/// Two small sites. Their pages link to each other and to addresses that are missing, cannot be
/// written or lead above the root. Of what saving rewrites, they contain only line ends and
/// ".php?".
class Sites {
  public:
    /// The body of one page of each site has `large` bytes.
    Sites(unsigned seed, std::size_t large);

    /// What the servers send in response to a request for this host and path.
    const Response& At(std::string address) const;

  private:
    std::map<std::string, Response> responses_;
    Response missing_;
};

/// The sites' hosts. A link above the root of the second site is queued, but the engine refuses to
/// request it.
inline constexpr const char* kHosts[] = {"www.site.com", "www.other.de"};

}  // namespace schedules
