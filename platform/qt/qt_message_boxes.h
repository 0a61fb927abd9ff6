#pragma once

#include "platform/message_box.h"

namespace platform {

/// The boxes that a person sees. They belong to the dialog that is open or else to the main window,
/// take the keyboard from no other program, and show their text as it is, never as markup.
class QtMessageBoxes final : public MessageBoxes {
  public:
    BoxAnswer MsgBox(const std::string& message, BoxStyle style, const std::string& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;
};

}  // namespace platform
