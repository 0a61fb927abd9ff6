#pragma once

#include <QString>
#include <string>

class QWidget;

namespace ui {

/// Asks for a file and writes `bytes` to it, in a dialog over `parent` that nobody waits for; a box
/// tells when that fails. `name` is what the file is called unless another name is given.
void AskAndSave(QWidget* parent, const QString& title, const QString& name, std::string bytes);

}  // namespace ui
