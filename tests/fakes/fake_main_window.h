#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "crawl/crawl_state.h"
#include "engine/endings.h"
#include "engine/http_exchange.h"
#include "engine/main_window.h"
#include "engine/scheduler.h"
#include "tests/fakes/fake_loop.h"
#include "tests/fakes/fake_socket.h"
#include "tests/fakes/fake_timer.h"
#include "text/one_based.h"

namespace fakes {

/// The main window without a screen: sockets and timers are in memory, and texts are kept for the
/// test to read. A reload really destroys the old controls, so that the address sanitizer finds any
/// later use of them.
class FakeMainWindow : public engine::MainWindow {
  public:
    struct Row {
        std::string status = "Not Connected.";
        std::string size;
        std::string received;
    };

    explicit FakeMainWindow(FakeLoop& loop) : loop_(loop) {
        engine::SetWindow(this);
        Load();
    }
    ~FakeMainWindow() override { engine::SetWindow(nullptr); }

    FakeSocket& Sock(int slot) override { return controls_->sockets[slot]->socket; }
    FakeTimer& tmrOut(int slot) override { return controls_->sockets[slot]->timeout; }
    FakeTimer& tmrMove() override { return controls_->move; }

    std::string Text1() const override { return text1; }
    void SetText1(const std::string& address) override { text1 = address; }
    void SetText1Enabled(bool enabled) override { text1_enabled = enabled; }
    void FocusText1() override { text1_focused = true; }
    bool Command1Enabled() const override { return start_enabled; }
    void SetCommand1Enabled(bool enabled) override { start_enabled = enabled; }
    void SetCommand2Enabled(bool enabled) override { stop_enabled = enabled; }
    std::string TxtMax() const override { return txt_max; }
    void SetTxtMax(const std::string& count) override { txt_max = count; }
    void SetPauseEnabled(bool enabled) override { pause_enabled = enabled; }
    void SetLabel3(const std::string& text) override { label3 = text; }
    void SetLabel4(const std::string& text) override { label4 = text; }
    void SetLabel5(const std::string& text) override { label5 = text; }
    void SetLabel6(const std::string& text) override { label6 = text; }
    void SetRowStatus(int slot, const std::string& text) override { rows[slot].status = text; }
    void SetRowSize(int slot, const std::string& text) override { rows[slot].size = text; }
    void SetRowReceived(int slot, const std::string& text) override { rows[slot].received = text; }
    void ShowList1() override { list1_shown = true; }
    void ShowCleaningUp() override {}
    void ShowPauseDialog() override {}
    /// Calls `attach` with each socket, also with those of later loads.
    void JoinNetwork(std::function<void(FakeSocket&)> attach) {
        attach_ = std::move(attach);
        for (int i = 1; i <= crawl::kSlotCount; ++i)
            attach_(Sock(i));
    }
    void Reload() override {
        ++reloads;
        Load();
    }

    std::string text1, txt_max, label3, label4, label5, label6;
    bool text1_enabled = true, text1_focused = false, start_enabled = true, stop_enabled = false;
    bool pause_enabled = false, list1_shown = false;
    int reloads = 0;
    text::OneBased<Row, crawl::kSlotCount> rows;

  private:
    struct Connection {
        explicit Connection(FakeLoop& loop) : socket(loop), timeout(loop) {}
        FakeSocket socket;
        FakeTimer timeout;
    };
    struct Controls {
        explicit Controls(FakeLoop& loop) : move(loop) {
            move.SetInterval(20);
            move.on_timer = bas_Connections::tmrMove_Timer;
            for (int i = 1; i <= crawl::kSlotCount; ++i) {
                sockets[i] = std::make_unique<Connection>(loop);
                sockets[i]->socket.on_connect = [i] { bas_Connections::Sock_Connect(i); };
                sockets[i]->socket.on_data = [i] { bas_Connections::Sock_DataArrival(i); };
                sockets[i]->timeout.SetInterval(20000);
                sockets[i]->timeout.on_timer = [i] { bas_Connections::tmrOut_Timer(i); };
            }
        }
        FakeTimer move;
        text::OneBased<std::unique_ptr<Connection>, crawl::kSlotCount> sockets;
    };

    void Load() {
        controls_ = std::make_unique<Controls>(loop_);
        if (attach_) JoinNetwork(attach_);
        text1.clear();
        txt_max = "4";
        label6 = "Not Connected.";
        start_enabled = text1_enabled = true;
        stop_enabled = false;
        rows = {};
        crawl::List1.Clear();
        crawl::List2.Clear();
    }

    FakeLoop& loop_;
    std::function<void(FakeSocket&)> attach_;
    std::unique_ptr<Controls> controls_;
};

}  // namespace fakes
