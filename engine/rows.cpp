#include "engine/rows.h"

#include "engine/main_window.h"

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
