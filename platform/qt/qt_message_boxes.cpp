#include "platform/qt/qt_message_boxes.h"

#include <QApplication>
#include <QEventLoop>
#include <QInputDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>

#include "platform/qt/local_text.h"

namespace platform {

namespace {

QString LinesOf(const std::string& message) {
    return FromBytes(message).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

/// Whether `window` is `other` or a dialog above it.
bool IsAbove(const QWidget* window, const QWidget* other) {
    while (window != nullptr && window != other)
        window = window->parentWidget();
    return window != nullptr;
}

/// The window that owns a new box: the active window, unless a modal dialog blocks it; else that
/// dialog; else the main window. While another program has the keyboard, none of our windows is
/// active, and a box without an owner would come up in front of that program.
QWidget* Owner() {
    QWidget* active = QApplication::activeWindow();
    if (active != nullptr && !active->isVisible()) active = nullptr;  // being closed
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal != nullptr) return IsAbove(active, modal) ? active : modal;
    if (active != nullptr) return active;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
    }
    return nullptr;
}

bool IsInFront() {
    return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

/// Brings the owner of the next box to the front. A window may be asked to close while it is
/// minimized or behind another program, and the resulting question must be seen.
void ComeToFront() {
    QWidget* const owner = Owner();
    if (owner == nullptr || IsInFront()) return;
    QWidget* const window = owner->window();
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
}

}  // namespace

BoxAnswer QtMessageBoxes::MsgBox(const std::string& message, BoxStyle style,
                                 const std::string& title) {
    const bool asks = style == BoxStyle::InformationYesNo || style == BoxStyle::StopYesNo;
    const bool stops = style == BoxStyle::Stop || style == BoxStyle::StopYesNo;

    ComeToFront();
    // A guarded pointer, because the owner may be destroyed, and the box with it, while the box is
    // open.
    const QPointer<QMessageBox> box(new QMessageBox(Owner()));
    box->setIcon(stops ? QMessageBox::Critical : QMessageBox::Information);
    box->setWindowTitle(FromBytes(title));
    box->setTextFormat(Qt::PlainText);
    box->setText(LinesOf(message));
    box->setStandardButtons(QMessageBox::Ok);
    if (asks) {
        box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box->setDefaultButton(QMessageBox::Yes);
        box->setEscapeButton(QMessageBox::No);  // also the answer when the frame is closed
    }
    const int button = box->exec();
    delete box.data();
    if (!asks) return BoxAnswer::Ok;
    return button == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

void QtMessageBoxes::AwaitAttention() {
    QWidget* const owner = Owner();
    if (owner == nullptr || IsInFront()) return;
    QApplication::alert(owner);
    QEventLoop in_front;
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &in_front,
                     [&in_front](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive) in_front.quit();
                     });
    in_front.exec();
}

std::string QtMessageBoxes::InputBox(const std::string& prompt, const std::string& title) {
    const QPointer<QInputDialog> box(new QInputDialog(Owner()));
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
