// draw_icons FOLDER: draws the program's icon into an existing folder, as SIZE.png for each size in
// pixels (for desktops) and as vantorin.ico (for Windows).

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QGuiApplication>
#include <QList>
#include <QPixmap>
#include <cstdio>

#include "widgets/app_icon.h"

namespace {

/// The sizes that Windows requests of a program's icon.
constexpr int kWindowsSizes[] = {16, 24, 32, 48, 64, 256};

QByteArray PngOf(int size) {
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    ui::AppIcon().pixmap(size).save(&png, "PNG");
    return png.data();
}

/// All sizes in one file: a header, an entry for each picture, then the pictures.
QByteArray WindowsIcon() {
    constexpr quint16 kIcon = 1, kPlanes = 1, kBitsPerPixel = 32;
    constexpr quint32 kHeaderSize = 6, kEntrySize = 16;
    QByteArray file, pictures;
    QDataStream header(&file, QIODevice::WriteOnly);
    header.setByteOrder(QDataStream::LittleEndian);
    header << quint16{0} << kIcon << quint16{std::size(kWindowsSizes)};
    const quint32 first = kHeaderSize + kEntrySize * std::size(kWindowsSizes);
    for (const int size : kWindowsSizes) {
        const QByteArray picture = PngOf(size);
        const auto side = static_cast<quint8>(size);  // 0 means 256 in this format
        header << side << side << quint16{0} << kPlanes << kBitsPerPixel
               << static_cast<quint32>(picture.size())
               << first + static_cast<quint32>(pictures.size());
        pictures += picture;
    }
    return file + pictures;
}

bool Write(const QString& path, const QByteArray& contents) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size()) return true;
    std::fprintf(stderr, "%s cannot be written\n", qPrintable(path));
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: draw_icons FOLDER\n", stderr);
        return 2;
    }
    const QString folder = arguments[1] + '/';
    bool written = Write(folder + "vantorin.ico", WindowsIcon());
    for (const QSize& size : ui::AppIcon().availableSizes()) {
        const QString name = QString::number(size.width()) + ".png";
        written = Write(folder + name, PngOf(size.width())) && written;
    }
    return written ? 0 : 1;
}
