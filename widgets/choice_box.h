#pragma once

#include <QComboBox>

namespace ui {

/// A combo box that responds to the mouse wheel only while it has the focus, so that scrolling past
/// it changes nothing.
class ChoiceBox : public QComboBox {
    Q_OBJECT

  public:
    /// `what` describes the choice for screen readers.
    ChoiceBox(const char* name, const QString& what, QWidget* parent);

    /// Makes the box editable. The text stays exactly as typed.
    void MakeEditable();

    void showPopup() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    /// Selects the item that matches the typed text, or none, so that stepping through the list
    /// starts there.
    void GoToTyped();
};

}  // namespace ui
