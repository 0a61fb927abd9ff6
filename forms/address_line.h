#pragma once

#include "widgets/note_line.h"

class QLineEdit;

namespace ui {

/// The line below an address box: what a crawl will request, or why it cannot succeed, with a link
/// that puts a better address into the box.
class AddressLine : public NoteLine {
    Q_OBJECT

  public:
    /// `box` must outlive this object.
    AddressLine(const char* name, QLineEdit* box, QWidget* parent);

    /// Updates the line. It also does so by itself when the box's text changes.
    void Judge();

    /// Why the address in the box cannot be fetched; "" if it may be.
    QString Warning() const;

  private:
    void UseInstead();

    QLineEdit* box_;
};

}  // namespace ui
