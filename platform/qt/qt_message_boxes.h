#pragma once

#include "platform/message_box.h"

namespace platform {

/// The real message boxes. A box belongs to the window in use and brings it to the front. Texts are
/// shown as they are, never as markup.
class QtMessageBoxes final : public MessageBoxes {
  public:
    BoxAnswer MsgBox(const std::string& message, BoxStyle style, const std::string& title) override;
    void AwaitAttention() override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;
};

}  // namespace platform
