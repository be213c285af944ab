#include "controls/Metafile.h"

#include <QFile>
#include <QtEndian>
#include <utility>

#include "controls/MetafileRecord.h"
#include "controls/Windows1252.h"

namespace marvello {

namespace {

constexpr std::uint32_t placeableKey = 0x9AC6CDD7;
constexpr std::size_t placeableSize = 22;
constexpr std::size_t headerSize = 18;
/// Drawings of machines are some ten to hundred kB.
constexpr qint64 maxFileSize = 4 << 20;

std::uint16_t wordAt(const char* data) { return qFromLittleEndian<std::uint16_t>(data); }

/// The exclusive or of the ten words of the placeable header before it.
bool checksumFits(const char* data) {
    std::uint16_t sum = 0;
    for (std::size_t i = 0; i < placeableSize - 2; i += 2)
        sum = static_cast<std::uint16_t>(sum ^ wordAt(data + i));
    return sum == wordAt(data + placeableSize - 2);
}

/// The records up to the one that ends the file; none when one does not fit or the end is missing.
std::vector<Metafile::Record> recordsOf(const QByteArray& bytes) {
    const auto size = static_cast<std::size_t>(bytes.size());
    std::vector<Metafile::Record> records;
    for (std::size_t at = placeableSize + headerSize; at + 6 <= size;) {
        const std::size_t words = qFromLittleEndian<std::uint32_t>(bytes.constData() + at);
        if (words < 3 || words > (size - at) / 2) return {};
        const std::uint16_t function = wordAt(bytes.constData() + at + 4);
        if (function == 0) return records;
        records.push_back({function, at + 6, words - 3});
        at += 2 * words;
    }
    return {};
}

}  // namespace

Metafile Metafile::fromBytes(QByteArray bytes) {
    Metafile file;
    if (bytes.size() < static_cast<qsizetype>(placeableSize + headerSize) || bytes.size() > maxFileSize)
        return file;
    const char* data = bytes.constData();
    const char* header = data + placeableSize;
    if (qFromLittleEndian<std::uint32_t>(data) != placeableKey || !checksumFits(data)) return file;
    if (wordAt(header) < 1 || wordAt(header) > 2 || wordAt(header + 2) != headerSize / 2) return file;
    const auto coordinate = [data](std::size_t at) { return static_cast<std::int16_t>(wordAt(data + at)); };
    file.box_ =
        QRectF(QPointF(coordinate(6), coordinate(8)), QPointF(coordinate(10), coordinate(12))).normalized();
    const int unitsPerInch = wordAt(data + 14);
    if (file.box_.width() < 1 || file.box_.height() < 1 || unitsPerInch == 0) return file;
    file.size_ = file.box_.size() * (25.4 / unitsPerInch);
    file.records_ = recordsOf(bytes);
    file.bytes_ = std::move(bytes);
    return file;
}

Metafile Metafile::load(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly) || file.size() > maxFileSize) return {};
    return fromBytes(file.readAll());
}

QStringList Metafile::texts() const {
    QStringList all;
    for (const Record& record : records_)
        if (const auto drawn = MetafileParameters(*this, record).drawnText()) all.append(drawn->text);
    return all;
}

MetafileParameters::MetafileParameters(const Metafile& file, const Metafile::Record& record)
    : data_(file.bytes().constData() + record.first),
      function_(static_cast<MetafileFunction>(record.function)),
      words_(record.words) {}

int MetafileParameters::number(std::size_t index) const {
    return index < words_ ? qFromLittleEndian<std::uint16_t>(data_ + 2 * index) : 0;
}

int MetafileParameters::word(std::size_t index) const { return static_cast<std::int16_t>(number(index)); }

std::uint32_t MetafileParameters::colour(std::size_t index) const {
    const int low = number(index), high = number(index + 1);
    return static_cast<std::uint32_t>((low & 0xFF) << 16 | (low & 0xFF00) | (high & 0xFF));
}

QString MetafileParameters::text(std::size_t index, int length) const {
    QString result;
    for (int i = 0; i < length && has(index + 1 + static_cast<std::size_t>(i / 2)); ++i) {
        const auto byte = static_cast<unsigned char>(data_[2 * index + static_cast<std::size_t>(i)]);
        if (byte == 0) break;
        result.append(fromWindows1252(byte));
    }
    return result;
}

std::optional<MetafileParameters::Text> MetafileParameters::drawnText() const {
    constexpr int opaque = 2, clipped = 4;
    if (function_ == MetafileFunction::textOut) {
        const int length = number(0);
        const auto after = 1 + static_cast<std::size_t>(length + 1) / 2;
        if (!has(after + 2)) return {};
        return Text{pointYx(after), text(1, length)};
    }
    if (function_ != MetafileFunction::extTextOut || !has(4)) return {};
    const int length = number(2);
    const std::size_t begin = (number(3) & (opaque | clipped)) != 0 ? 8 : 4;
    if (!has(begin + static_cast<std::size_t>(length + 1) / 2)) return {};
    return Text{pointYx(0), text(begin, length)};
}

}  // namespace marvello
