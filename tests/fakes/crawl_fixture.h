#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "crawl/crawl_state.h"
#include "engine/site_start.h"
#include "tests/fakes/fake_main_window.h"
#include "tests/fakes/fake_system.h"

namespace fakes {

/// The engine with an in-memory system and window, in virtual time.
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

    /// The server of `slot` accepts the connection.
    void Accept(int slot) {
        window.Sock(slot).PeerAccepts();
        loop.RunUntilIdle();
    }
    /// It also sends these bytes and closes.
    void Answer(int slot, const std::string& bytes) {
        Accept(slot);
        window.Sock(slot).PeerSends(bytes);
        window.Sock(slot).PeerCloses();
        loop.RunUntilIdle();
    }
    void Respond(int slot, const std::string& body) {
        Answer(slot, "HTTP/1.0 200 OK\r\n\r\n" + body);
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

    FakeSystem system;
    FakeLoop& loop = system.loop;
    FakeMainWindow window{loop};
};

}  // namespace fakes
