#pragma once

#include "platform/message_box.h"

namespace platform {

/// The boxes that a person sees. They belong to the window that is being worked in, which comes to
/// the front with them, and show their text as it is, never as markup.
class QtMessageBoxes final : public MessageBoxes {
  public:
    BoxAnswer MsgBox(const std::string& message, BoxStyle style, const std::string& title) override;
    void AwaitAttention() override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;
};

}  // namespace platform
