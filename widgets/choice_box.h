#pragma once

#include <QComboBox>

namespace ui {

/// A combo box that the mouse wheel turns only while it has the focus: a wheel that scrolls past
/// changes nothing.
class ChoiceBox : public QComboBox {
    Q_OBJECT

  public:
    ChoiceBox(const char* name, QWidget* parent);

    /// Makes what it shows a text to type, too, exactly as it is typed.
    void LetType();

  protected:
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace ui
