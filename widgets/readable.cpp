#include "widgets/readable.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include "widgets/contrast.h"

namespace ui {

namespace {

class PaletteKeeper : public QObject {
  public:
    PaletteKeeper(QWidget* widget, QPalette::ColorRole background)
        : QObject(widget), widget_(widget), background_(background) {
        SetColours();
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ApplicationPaletteChange) SetColours();
        return false;
    }

  private:
    void SetColours() {
        QPalette colours = QApplication::palette(widget_);
        const QColor text = colours.color(QPalette::Active, QPalette::Text);
        colours.setColor(QPalette::PlaceholderText,
                         QuietText(text, {colours.color(QPalette::Active, background_)}));
        const QColor disabled = QuietText(text, {colours.color(QPalette::Disabled, background_)});
        for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            colours.setColor(QPalette::Disabled, role, disabled);
        widget_->setPalette(colours);
    }

    QWidget* widget_;
    QPalette::ColorRole background_;
};

}  // namespace

void KeepReadable(QWidget* widget, QPalette::ColorRole background) {
    new PaletteKeeper(widget, background);
}

}  // namespace ui
