#include "widgets/label_font.h"

#include <QStringList>

namespace ui {

QFont LabelFont() {
    QFont font;
    font.setFamilies({"Verdana", "DejaVu Sans", "Bitstream Vera Sans"});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(12);
    return font;
}

}  // namespace ui
