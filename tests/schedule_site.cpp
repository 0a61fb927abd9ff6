#include "tests/schedule_site.h"

#include <iterator>
#include <random>

#include "text/text.h"

namespace schedules {

namespace {

using Random = std::mt19937;

constexpr struct {
    const char *path, *file;
} kPages[] = {{"/", "index.html"},      {"/a.html", "a.html"}, {"/b.html", "b.html"},
              {"/d/", "d\\index.html"}, {"/p.gif", "p.gif"},   {"/q.php?x=1", "q.php_x=1.html"},
              {"/bad.html", nullptr}};

constexpr const char* kLinks[] = {
    "a.html",   "b.html",      "d/",        "p.gif",   "q.php?x=1",     "bad.html",    "gone.html",
    "no.other", "w{ww.x.html", "../a.html", "#a.html", "../../up.html", "d/../b.html?"};

template <typename T, std::size_t N>
const T& OneOf(const T (&items)[N], Random& random) {
    return items[random() % N];
}

/// A page that differs from all others, because it contains its address.
std::string Body(const std::string& address, Random& random) {
    std::string body = "<p>" + address + "<p>";
    for (auto links = 1 + random() % 6; links > 0; --links) {
        body += std::string("<a href=") + OneOf(kLinks, random) + ">";
    }
    if (random() % 4 == 0) body += "<meta content=\"1; url=http://far.site.com/leaf.html\">";
    return body + std::string(random() % 300, '.');
}

std::string Header(std::size_t length, Random& random) {
    const std::string lengths[] = {"", "Content-Length: " + std::to_string(length) + "\r\n",
                                   "Content-Length: 7\r\n", "Content-Length: 99999999999999\r\n"};
    return "HTTP/1.0 200 OK\r\n" + OneOf(lengths, random) + "Server: x\r\n\r\n";
}

}  // namespace

Sites::Sites(unsigned seed, std::size_t large)
    : missing_{"HTTP/1.0 404 Not Found\r\n\r\nNone. <a href='w{ww.x.html'><a href=bad.html>",
               Ending::Close, ""} {
    Random random(seed);
    constexpr Ending kEndings[] = {Ending::Close, Ending::Close, Ending::Close,   Ending::Close,
                                   Ending::Close, Ending::Reset, Ending::Silence, Ending::Refusal};
    for (const std::string host : kHosts) {
        const std::size_t large_page = 1 + random() % (std::size(kPages) - 1);
        for (const auto& page : kPages) {
            std::string body = Body(host + page.path, random);
            if (&page == &kPages[large_page]) body.resize(large, '.');
            const bool first = &page == kPages;
            const std::string folder = "c:\\Websites\\" + host.substr(4) + "\\";
            responses_[host + page.path] = {Header(body.size(), random) + body,
                                            first ? Ending::Close : OneOf(kEndings, random),
                                            page.file != nullptr ? folder + page.file : ""};
        }
    }
}

const Response& Sites::At(std::string address) const {
    text::ReplaceAllIn(address, "/index.html", "/");
    text::ReplaceAllIn(address, "//", "/");
    const auto response = responses_.find(address);
    return response != responses_.end() ? response->second : missing_;
}

}  // namespace schedules
