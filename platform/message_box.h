#pragma once

#include <string>

namespace platform {

/// Icon and buttons of a message box.
enum class BoxStyle { Information, InformationYesNo, Stop, StopYesNo };

/// A box closed by its frame answers Ok where that is the only button, else No.
enum class BoxAnswer { Ok, Yes, No };

/// Every modal question that the program asks. The event loop runs while one is open, so the crawl
/// goes on behind it.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;

    virtual BoxAnswer MsgBox(const std::string& message, BoxStyle style,
                             const std::string& title) = 0;

    /// To be called before a box that nobody has just asked for: waits until the program is in
    /// front, and asks for attention meanwhile. The box would take the keyboard from another
    /// program, and the next key typed there would answer it.
    virtual void AwaitAttention() = 0;

    /// Asks for a line of text; "" when cancelled.
    virtual std::string InputBox(const std::string& prompt, const std::string& title) = 0;
};

}  // namespace platform
