#pragma once

#include "widgets/note_line.h"

class QLineEdit;

namespace ui {

/// The line below a box for the address of a web site: what a crawl will ask for, or why nothing
/// can come of it, with a link that puts a better address into the box.
class AddressLine : public NoteLine {
    Q_OBJECT

  public:
    /// `box` must outlive this.
    AddressLine(const char* name, QLineEdit* box, QWidget* parent);

    /// Says it of what is in the box now; the line does so by itself when the box's text changes.
    void Judge();

    /// Why nothing can come of what is in the box; "" when something may.
    QString Warning() const;

  private:
    void UseInstead();

    QLineEdit* box_;
};

}  // namespace ui
