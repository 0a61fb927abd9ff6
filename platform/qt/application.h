#pragma once

#include <QApplication>

namespace platform {

/// Makes the application. Both arguments must outlive it.
///
/// It runs Qt's own event loop, not GLib's, which Qt would take where there is one: that loop wakes
/// itself up, with two system calls, each time that a socket is watched or no more.
QApplication MakeApplication(int& argc, char** argv);

}  // namespace platform
