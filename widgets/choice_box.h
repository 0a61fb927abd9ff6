#pragma once

#include <QComboBox>

namespace ui {

/// A combo box that the mouse wheel turns only while it has the focus: a wheel that scrolls past
/// changes nothing.
class ChoiceBox : public QComboBox {
    Q_OBJECT

  public:
    /// A screen reader says `what` it is to choose.
    ChoiceBox(const char* name, const QString& what, QWidget* parent);

    /// Makes what it shows a text to type, too, exactly as it is typed.
    void LetType();

    void showPopup() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    /// Makes what was typed the chosen item where it is one, and no item chosen where it is none:
    /// steps through the list begin there.
    void GoToTyped();
};

}  // namespace ui
