#pragma once

namespace ui {

/// Makes screen readers announce every `ChoiceBox` by its accessible name. Except on Windows, Qt
/// would announce its text instead.
void InstallChoiceBoxAccess();

}  // namespace ui
