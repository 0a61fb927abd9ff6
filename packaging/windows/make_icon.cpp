// make_icon FILE: writes the program's icon as Windows keeps icons, a list of pictures of one
// motif.

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QGuiApplication>
#include <QList>
#include <QPixmap>

#include "widgets/app_icon.h"

namespace {

constexpr int kSizes[] = {16, 24, 32, 48, 64, 256};

QByteArray PictureOf(int size) {
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    ui::AppIcon().pixmap(size).save(&png, "PNG");
    return png.data();
}

QByteArray IconFile() {
    constexpr quint16 kIcon = 1, kPlanes = 1, kBitsPerPixel = 32;
    constexpr quint32 kHeaderSize = 6, kEntrySize = 16;
    QByteArray file, pictures;
    QDataStream header(&file, QIODevice::WriteOnly);
    header.setByteOrder(QDataStream::LittleEndian);
    header << quint16{0} << kIcon << quint16{std::size(kSizes)};
    const quint32 first = kHeaderSize + kEntrySize * std::size(kSizes);
    for (const int size : kSizes) {
        const QByteArray picture = PictureOf(size);
        const auto side = static_cast<quint8>(size);  // 0 says 256
        header << side << side << quint16{0} << kPlanes << kBitsPerPixel
               << static_cast<quint32>(picture.size())
               << first + static_cast<quint32>(pictures.size());
        pictures += picture;
    }
    return file + pictures;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) return 2;
    QFile file(argv[1]);
    const QByteArray icon = IconFile();
    return file.open(QIODevice::WriteOnly) && file.write(icon) == icon.size() ? 0 : 1;
}
