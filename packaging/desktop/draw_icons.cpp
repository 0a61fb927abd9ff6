#include <QGuiApplication>
#include <QPixmap>
#include <cstdio>

#include "widgets/app_icon.h"

/// Writes the program's icon into a folder that exists, as SIZE.png in each of its sizes (pixels).
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: draw_icons FOLDER\n", stderr);
        return 2;
    }
    const QIcon icon = ui::AppIcon();
    for (const QSize& size : icon.availableSizes()) {
        const QString file = QStringLiteral("%1/%2.png").arg(arguments[1]).arg(size.width());
        if (icon.pixmap(size).save(file)) continue;
        std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
        return 1;
    }
    return 0;
}
