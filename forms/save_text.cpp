#include "forms/save_text.h"

#include <QFileDialog>
#include <utility>

#include "platform/path_text.h"
#include "platform/qt/local_text.h"
#include "platform/services.h"

namespace ui {

void AskAndSave(QWidget* parent, const QString& title, const QString& name, std::string bytes) {
    auto* dialog = new QFileDialog(parent, title);
    dialog->setObjectName("SaveText");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("txt");
    dialog->selectFile(name);
    QObject::connect(dialog, &QFileDialog::fileSelected,
                     [bytes = std::move(bytes)](const QString& file) {
                         const std::string path = platform::PathTextOf(platform::ToBytes(file));
                         if (platform::System().files.WriteFile(path, {bytes})) return;
                         platform::System().boxes.MsgBox(
                             "This file cannot be written:\r\n\r\n" + platform::ToBytes(file),
                             platform::BoxStyle::Stop, "Save");
                     });
    dialog->open();
}

}  // namespace ui
