#pragma once

#include <QWidget>

namespace ui {

/// A purely decorative picture. It is drawn from shapes in middle tones, so that it is sharp at
/// every scale and stands out on light and dark desktops.
class Decoration : public QWidget {
    Q_OBJECT

  public:
    enum class Subject { Globe, Arrow, Folder, Funnel };

    Decoration(const char* name, Subject subject, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Subject subject_;
};

}  // namespace ui
