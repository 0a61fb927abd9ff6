#pragma once

namespace ui {

/// Lets a screen reader call every `ChoiceBox` by its accessible name. Except on Windows, Qt would
/// call it by the text that it shows.
void LetBeNamed();

}  // namespace ui
