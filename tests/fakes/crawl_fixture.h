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

/// The engine with an in-memory system, window and network, in virtual time.
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

    /// The server of `slot` accepts the connection, responds with `body` and closes.
    void Respond(int slot, const std::string& body) {
        window.Sock(slot).PeerAccepts();
        loop.RunUntilIdle();
        window.Sock(slot).PeerSends("HTTP/1.0 200 OK\r\n\r\n" + body);
        window.Sock(slot).PeerCloses();
        loop.RunUntilIdle();
    }

    /// The contents of this file in the mirror of site.com, or "(none)".
    std::string Saved(const std::string& name) const {
        return system.files.At("C:\\Websites\\site.com\\" + name);
    }

    /// Leaves only the list of wanted file types on the disk.
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
