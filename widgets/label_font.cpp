#include "widgets/label_font.h"

#include <QStringList>

#include "widgets/twips.h"

namespace ui {

QFont LabelFont() {
    QFont font;
    font.setFamilies({"Verdana", "DejaVu Sans", "Bitstream Vera Sans"});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(Twips(180));
    return font;
}

QFont SmallLabelFont() {
    QFont font = LabelFont();
    font.setPixelSize(Twips(150));
    return font;
}

}  // namespace ui
