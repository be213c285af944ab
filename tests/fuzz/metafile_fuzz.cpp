// Any bytes as a metafile: no picture, or one that is drawn in short time.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstddef>
#include <cstdint>

#include "controls/Metafile.h"

namespace {

/// A file with the header that lets it in: else nearly all changed files would be refused at once.
QByteArray admitted(const std::uint8_t* data, std::size_t size) {
    constexpr qsizetype headers = 40;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (bytes.size() < headers) return bytes;
    constexpr unsigned char begin[]{0xD7, 0xCD, 0xC6, 0x9A};
    for (qsizetype i = 0; i < 4; ++i) bytes[i] = static_cast<char>(begin[i]);
    bytes[20] = bytes[21] = 0;
    for (qsizetype i = 0; i < 20; ++i) bytes[20 + i % 2] = static_cast<char>(bytes[20 + i % 2] ^ bytes[i]);
    return bytes;
}

void tryOut(const QByteArray& bytes) {
    const auto metafile = marvello::Metafile::fromBytes(bytes);
    if (metafile.isNull()) return;
    QImage image(120, 80, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    metafile.draw(painter, image.rect());
    (void)metafile.texts();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*count, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tryOut(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    tryOut(admitted(data, size));
    return 0;
}
