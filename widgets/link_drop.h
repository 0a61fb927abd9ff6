#pragma once

#include <QObject>

class QLineEdit;
class QWidget;

namespace ui {

/// Takes a link, or an address as text, that is dropped anywhere on a form into one box of it. The
/// form's other boxes for text take nothing then.
class LinkDrop : public QObject {
    Q_OBJECT

  public:
    /// `box` lies on `form`. A box that is disabled takes nothing.
    LinkDrop(QWidget* form, QLineEdit* box);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLineEdit* box_;
};

}  // namespace ui
