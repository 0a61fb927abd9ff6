#pragma once

#include <QString>
#include <string>

class QWidget;

namespace ui {

/// Asks for a file in a dialog over `parent` and writes `bytes` to it. Returns at once. A box
/// reports a failure. `name` is the suggested file name.
void AskAndSave(QWidget* parent, const QString& title, const QString& name, std::string bytes);

}  // namespace ui
