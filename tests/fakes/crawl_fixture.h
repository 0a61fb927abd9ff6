#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "crawl/crawl_state.h"
#include "engine/site_start.h"
#include "tests/fakes/fake_loop.h"
#include "tests/fakes/fake_main_window.h"
#include "tests/fakes/fake_network.h"
#include "tests/fakes/fake_system.h"

namespace fakes {

/// The engine with everything around it in memory: system, window, virtual time and, where wanted,
/// servers.
class CrawlTest : public testing::Test {
  protected:
    CrawlTest() {
        BlankDisk();
        crawl::Report.clock = [this] { return std::chrono::milliseconds(loop.Now()); };
    }

    /// Types an address and starts its crawl.
    void Start(const std::string& address) {
        crawl::TargetFolder = "C:\\Websites\\";
        window.text1 = address;
        bas_Connections::ConnectNowNow();
    }

    void Queue(const std::vector<std::string>& addresses) {
        for (const std::string& address : addresses)
            crawl::List1.AddItem(address);
    }

    /// Lets the server of `slot` accept, respond with `body` and close.
    void Respond(int slot, const std::string& body) {
        window.Sock(slot).PeerAccepts();
        loop.RunUntilIdle();
        window.Sock(slot).PeerSends("HTTP/1.0 200 OK\r\n\r\n" + body);
        window.Sock(slot).PeerCloses();
        loop.RunUntilIdle();
    }

    /// What the mirror of site.com has under this name, or "(none)".
    std::string Saved(const std::string& name) const {
        return system.files.At("C:\\Websites\\site.com\\" + name);
    }

    /// An empty disk with the list of wanted file types.
    void BlankDisk() {
        system.files.files.clear();
        system.files.folders = {"c:", "z:"};
        system.files.Have("C:\\program\\temp\\filetypes.txt", ".htm\r\n.html\r\n.php\r\n.gif\r\n");
    }

    FakeLoop loop;
    FakeSystem system{loop};
    FakeNetwork network;
    FakeMainWindow window{loop};
};

}  // namespace fakes
