#pragma once

#include <QObject>

class QLineEdit;
class QWidget;

namespace ui {

/// Puts a link, or an address as text, that is dropped anywhere on a form into one of its boxes.
/// The form's other text boxes then accept no drops.
class LinkDrop : public QObject {
    Q_OBJECT

  public:
    /// `box` is on `form`. While it is disabled, drops are ignored.
    LinkDrop(QWidget* form, QLineEdit* box);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLineEdit* box_;
};

}  // namespace ui
