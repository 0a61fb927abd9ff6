#pragma once

#include <QDialog>

namespace ui {

/// The pause dialog. No new file starts while it is open. However it is closed, the crawl
/// continues.
class frmPause : public QDialog {
    Q_OBJECT

  public:
    explicit frmPause(QWidget* parent);
};

}  // namespace ui
