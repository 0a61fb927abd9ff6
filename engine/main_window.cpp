#include "engine/main_window.h"

#include <cassert>

namespace engine {

namespace {
MainWindow* g_window = nullptr;
}

MainWindow& Window() {
    assert(g_window != nullptr);
    return *g_window;
}

bool CrawlIsRunning() {
    return !Window().Command1Enabled();
}

void SetWindow(MainWindow* window) {
    g_window = window;
}

}  // namespace engine

namespace bas_Connections {

void SetSlotStatus(int slot, const std::string& text) {
    engine::Window().SetRowStatus(slot, text);
}

void ResetSlotRow(int slot) {
    engine::MainWindow& window = engine::Window();
    window.SetRowStatus(slot, kNotConnected);
    window.SetRowSize(slot, "0 KB");
    window.SetRowReceived(slot, "-");
}

}  // namespace bas_Connections
