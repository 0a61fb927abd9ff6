#pragma once

#include <QMetaObject>
#include <QTimer>

#include "ui/window_holder.h"

namespace cli {

/// While this object exists, the program with the window ends cleanly, whatever ends it: a signal,
/// the end of the desktop's session, or a display that goes away.
class ExitWatch {
  public:
    explicit ExitWatch(ui::WindowHolder& holder);
    ~ExitWatch();
    ExitWatch(const ExitWatch&) = delete;
    ExitWatch& operator=(const ExitWatch&) = delete;

  private:
    QTimer signals_;
    QMetaObject::Connection session_;
};

}  // namespace cli
