// Any bytes as a rich text, and any bytes within one: a document, in short time.
#include <QGuiApplication>
#include <QTextDocument>
#include <cstddef>
#include <cstdint>

#include "controls/RichText.h"

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*count, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QTextDocument document;
    marvello::readRichText(bytes, document);
    marvello::readRichText("{\\rtf1" + bytes, document);
    return 0;
}
