#pragma once

#include <string>

namespace platform {

/// Icon and buttons of a message box.
enum class BoxStyle { Information, InformationYesNo, Stop, StopYesNo };

/// Closing a box by its frame answers Ok if that is the only button, otherwise No.
enum class BoxAnswer { Ok, Yes, No };

/// Every modal question that the program asks. The event loop runs while a box is open, so the
/// crawl continues behind it.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;

    virtual BoxAnswer MsgBox(const std::string& message, BoxStyle style,
                             const std::string& title) = 0;

    /// Call this before showing a box that is not an answer to the user's action. It waits until
    /// the program is in front and asks for attention meanwhile. Otherwise the box would take the
    /// keyboard from another program, and the next key typed there would answer it.
    virtual void AwaitAttention() = 0;

    /// Asks for a line of text; "" if cancelled.
    virtual std::string InputBox(const std::string& prompt, const std::string& title) = 0;
};

}  // namespace platform
