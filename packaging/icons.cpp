// Draws the icon of the program at the sizes that menus and software centres ask for.
//
//     marvello-icons ICON.svg FOLDER SIDE...        writes FOLDER/SIDE.png for each side in pixels

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdio>

namespace {

bool draw(QSvgRenderer& source, int side, const QString& file) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    source.render(&painter);
    painter.end();
    return image.save(file, "PNG");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs("usage: marvello-icons ICON.svg FOLDER SIDE...\n", stderr);
        return 2;
    }
    QSvgRenderer source(QString::fromLocal8Bit(argv[1]));
    if (!source.isValid()) {
        std::fprintf(stderr, "%s is no drawing.\n", argv[1]);
        return 2;
    }
    for (int i = 3; i < argc; ++i) {
        const QString side = QString::fromLocal8Bit(argv[i]);
        const QString file = QStringLiteral("%1/%2.png").arg(QString::fromLocal8Bit(argv[2]), side);
        if (side.toInt() <= 0 || !draw(source, side.toInt(), file)) {
            std::fprintf(stderr, "%s cannot be written.\n", file.toLocal8Bit().constData());
            return 2;
        }
    }
    return 0;
}
