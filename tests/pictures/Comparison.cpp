#include "tests/pictures/Comparison.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QSet>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace marvello::testing {

namespace {

constexpr double always = 3;            // of 255: what rounding does
constexpr double ofTheContrast = 0.15;  // of the difference between the pixels around, besides

bool isRenewing = false;
QStringList asked;

const QString references = QStringLiteral(MARVELLO_SOURCE_FOLDER "/tests/pictures/references");
const QString left = QStringLiteral(MARVELLO_FAILED_PICTURES);

using Channels = std::array<int, 3>;

Channels channelsOf(QRgb colour) { return {qRed(colour), qGreen(colour), qBlue(colour)}; }

/// The darkest and the lightest of the three by three pixels around one, by channel.
std::pair<Channels, Channels> around(const QImage& image, int x, int y) {
    Channels least{255, 255, 255}, most{0, 0, 0};
    for (int row = std::max(y - 1, 0); row <= std::min(y + 1, image.height() - 1); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(row));
        for (int column = std::max(x - 1, 0); column <= std::min(x + 1, image.width() - 1); ++column) {
            const Channels at = channelsOf(line[column]);
            for (std::size_t i = 0; i < at.size(); ++i) {
                least[i] = std::min(least[i], at[i]);
                most[i] = std::max(most[i], at[i]);
            }
        }
    }
    return {least, most};
}

bool differs(const QImage& painted, const QImage& reference, int x, int y) {
    const QRgb one = painted.pixel(x, y), other = reference.pixel(x, y);
    if (one == other) return false;
    const Channels is = channelsOf(one), wanted = channelsOf(other);
    const auto [least, most] = around(reference, x, y);
    for (std::size_t i = 0; i < is.size(); ++i)
        if (std::abs(is[i] - wanted[i]) > always + ofTheContrast * (most[i] - least[i])) return true;
    return false;
}

QImage pale(const QImage& image) {
    QImage result = image.copy();
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x) {
            const int grey = 170 + qGray(result.pixel(x, y)) / 3;
            result.setPixel(x, y, qRgb(grey, grey, grey));
        }
    return result;
}

/// Rounds the shades at edges by a third of what the comparison forgives there at most, so that most pictures
/// have no more colours than a palette takes: their files are a third as large.
QImage rounded(const QImage& image) {
    QImage result = image.copy();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const auto [least, most] = around(image, x, y);
            Channels at = channelsOf(image.pixel(x, y));
            for (std::size_t i = 0; i < at.size(); ++i) {
                const int off = static_cast<int>(ofTheContrast / 3 * (most[i] - least[i]));
                const int step = off >= 8 ? 16 : off >= 4 ? 8 : off >= 2 ? 4 : 1;
                at[i] = std::min((at[i] + step / 2) / step * step, 255);
            }
            result.setPixel(x, y, qRgb(at[0], at[1], at[2]));
        }
    return result;
}

void write(const QImage& image, const QString& file) {
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) colours += image.pixel(x, y);
    QImage written = image;
    if (colours.size() <= 256) {
        QList<QRgb> palette(colours.begin(), colours.end());
        std::sort(palette.begin(), palette.end());
        written = image.convertToFormat(QImage::Format_Indexed8, palette, Qt::ThresholdDither);
    }
    QImageWriter writer(file, "png");
    writer.setQuality(0);
    if (!writer.write(written)) ADD_FAILURE() << qPrintable(file + ": " + writer.errorString());
}

}  // namespace

std::optional<Difference> difference(const QImage& painted, const QImage& reference) {
    const QImage is = painted.convertToFormat(QImage::Format_RGB32);
    const QImage wanted = reference.convertToFormat(QImage::Format_RGB32);
    if (is.size() != wanted.size()) return Difference{0, {}, {}};
    Difference result{0, {}, {}};
    std::vector<QPoint> places;
    for (int y = 0; y < is.height(); ++y)
        for (int x = 0; x < is.width(); ++x)
            if (differs(is, wanted, x, y)) {
                places.emplace_back(x, y);
                result.around |= QRect(x, y, 1, 1);
            }
    if (places.empty()) return {};
    result.pixels = static_cast<int>(places.size());
    result.picture = pale(wanted);
    for (const QPoint& place : places) result.picture.setPixel(place, 0xFFFF0000);
    return result;
}

void renewReferences() { isRenewing = true; }

void removeUnpainted() {
    for (const QFileInfo& file : QDir(references).entryInfoList({QStringLiteral("*.png")}))
        if (!asked.contains(file.completeBaseName())) QFile::remove(file.filePath());
}

void expectPicture(const QString& name, const QImage& painted) {
    asked += name;
    const QString file = references + u'/' + name + QStringLiteral(".png");
    const QImage picture = painted.convertToFormat(QImage::Format_RGB32);
    const QImage reference(file);
    const auto found = reference.isNull() ? Difference{0, {}, {}} : difference(picture, reference);
    if (!found) return;
    if (isRenewing) return write(rounded(picture), file);
    QDir().mkpath(left);
    const QString beside = left + u'/' + name;
    write(picture, beside + QStringLiteral(".painted.png"));
    if (!reference.isNull()) write(reference, beside + QStringLiteral(".reference.png"));
    if (!found->picture.isNull()) write(found->picture, beside + QStringLiteral(".difference.png"));
    const QRect at = found->around;
    ADD_FAILURE() << qPrintable(
        name +
        (reference.isNull()   ? QStringLiteral(" has no reference")
         : found->pixels == 0 ? QStringLiteral(" is %1 x %2 pixels large instead of %3 x %4")
                                    .arg(picture.width())
                                    .arg(picture.height())
                                    .arg(reference.width())
                                    .arg(reference.height())
                              : QStringLiteral(" differs in %1 pixels, within %2 x %3 pixels at %4, %5")
                                    .arg(found->pixels)
                                    .arg(at.width())
                                    .arg(at.height())
                                    .arg(at.x())
                                    .arg(at.y())) +
        QStringLiteral("; see ") + beside + QStringLiteral(".*.png"));
}

}  // namespace marvello::testing
