#pragma once

#include <QApplication>

namespace platform {

/// Creates the application. Both arguments must outlive it.
///
/// It uses Qt's own event loop. Qt would choose GLib's where available, but that loop wakes itself
/// up with two system calls whenever a socket watch starts or stops.
QApplication MakeApplication(int& argc, char** argv);

}  // namespace platform
