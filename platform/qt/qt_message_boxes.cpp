#include "platform/qt/qt_message_boxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>

#include "platform/qt/local_text.h"

namespace platform {

namespace {

QString LinesOf(const std::string& message) {
    return FromBytes(message).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace

BoxAnswer QtMessageBoxes::MsgBox(const std::string& message, BoxStyle style,
                                 const std::string& title) {
    const bool asks = style == BoxStyle::InformationYesNo || style == BoxStyle::StopYesNo;
    const bool stops = style == BoxStyle::Stop || style == BoxStyle::StopYesNo;

    // On the heap and watched, since the window above it may be unloaded while it is open.
    const QPointer<QMessageBox> box(new QMessageBox(QApplication::activeWindow()));
    box->setIcon(stops ? QMessageBox::Critical : QMessageBox::Information);
    box->setWindowTitle(FromBytes(title));
    box->setTextFormat(Qt::PlainText);
    box->setText(LinesOf(message));
    box->setStandardButtons(QMessageBox::Ok);
    if (asks) {
        box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box->setDefaultButton(QMessageBox::Yes);
        box->setEscapeButton(QMessageBox::No);  // what closing the frame answers, too
    }
    const int button = box->exec();
    delete box.data();
    if (!asks) return BoxAnswer::Ok;
    return button == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

std::string QtMessageBoxes::InputBox(const std::string& prompt, const std::string& title) {
    const QPointer<QInputDialog> box(new QInputDialog(QApplication::activeWindow()));
    box->setWindowTitle(FromBytes(title));
    box->setLabelText(LinesOf(prompt));
    for (QLabel* label : box->findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    std::string text;
    if (box->exec() == QDialog::Accepted && box) text = ToBytes(box->textValue());
    delete box.data();
    return text;
}

}  // namespace platform
