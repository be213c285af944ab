#include "reports/PaperPage.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "controls/GraphLegend.h"
#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

const QColor PaperPage::ink(0x18, 0x21, 0x26);
const QColor PaperPage::quiet(0x55, 0x62, 0x6A);
const QColor PaperPage::faint(0xE4, 0xE4, 0xE4);
const QColor PaperPage::frame(0xC9, 0xD1, 0xD6);
const QColor PaperPage::headingBlue(0, 0, 255);
const QColor PaperPage::warningOrange(0xC9, 0x6A, 0x00);

PaperPage::PaperPage(QPainter& painter, const QSizeF& paper, const ReportContent& content)
    : painter_(painter), content_(content), width_(paper.width() * mm), height_(paper.height() * mm) {}

QFont PaperPage::letters(double size, QFont::Weight weight) {
    QFont font = lookFont(static_cast<int>(std::lround(size)), weight);
    // A spacing that no one sees keeps "ffi" three letters, so that they are found in the file.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.02);
    return font;
}

void PaperPage::text(const QRectF& box, Qt::Alignment alignment, double size, const QString& words,
                     const QColor& colour, QFont::Weight weight) {
    QFont font = letters(size, weight);
    const double needed = QFontMetricsF(font).horizontalAdvance(words);
    if (needed > box.width()) font = letters(size * box.width() / needed, weight);
    painter_.setFont(font);
    painter_.setPen(colour);
    painter_.drawText(box, static_cast<int>(alignment) | Qt::TextDontClip, words);
}

void PaperPage::rule(double top, double thickness, const QColor& colour, double from, double to) {
    painter_.fillRect(QRectF(from, top, to - from, thickness), colour);
}

double PaperPage::paintEnvelope(const EnvelopeDrawing& envelope, const QRectF& box, int legendColumns) {
    painter_.save();
    painter_.setClipRect(box);
    painter_.translate(box.topLeft());
    painter_.scale(pixel, pixel);
    envelope.paint(painter_, QRectF(QPointF(), box.size() / pixel), GraphColours::onPaper());
    painter_.restore();

    const auto entries = GraphLegend::entries(envelope.limits);
    constexpr double step = 4.4 * mm;
    constexpr double sample = 5.4 * mm;
    const double top = box.bottom() + 1.5 * mm;
    const double column = box.width() / legendColumns;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto place = static_cast<int>(i);
        const double left = box.left() + column * (place % legendColumns);
        const double middle = top + step * (place / legendColumns + 0.5);
        painter_.save();
        painter_.translate(left, middle);
        painter_.scale(pixel, pixel);
        GraphLegend::paintSample(painter_, *entries[i], GraphColours::onPaper().line(*entries[i]), {0, 0},
                                 sample / pixel);
        painter_.restore();
        const double words = sample + 1.4 * mm;
        text({left + words, middle - step / 2, column - words - 1 * mm, step},
             Qt::AlignLeft | Qt::AlignVCenter, 7 * point, QString::fromStdString(entries[i]->Description),
             ink);
    }
    return top + step * std::ceil(static_cast<double>(entries.size()) / legendColumns);
}

void PaperPage::paintHead(const QString& title) {
    painter_.fillRect(QRectF(0, 0, width_, height_), Qt::white);
    paintIconOnPaper(painter_, QRectF(side, 15 * mm, 30 * mm, 30 * mm * 14 / 131), QStringLiteral("wordmark"),
                     ink);
    text({width_ / 2, 11 * mm, right() - width_ / 2, 12 * mm}, Qt::AlignRight | Qt::AlignVCenter, 20 * point,
         content_.model, ink);
    rule(25 * mm, 0.35 * mm, ink, side, right());
    const QRectF line(side, 27 * mm, right() - side, 4 * mm);
    text(line.adjusted(0, 0, -30 * mm, 0), Qt::AlignLeft | Qt::AlignVCenter, 7 * point, title, quiet);
    text(line, Qt::AlignRight | Qt::AlignVCenter, 7 * point, content_.version, quiet);
}

void PaperPage::paintFoot(int page) {
    rule(footTop(), 0.15 * mm, quiet, side, right());
    const QRectF line(side, footTop() + 2 * mm, right() - side, 4 * mm);
    text(line.adjusted(0, 0, -50 * mm, 0), Qt::AlignLeft | Qt::AlignVCenter, 7 * point, content_.address,
         quiet);
    text(line, Qt::AlignRight | Qt::AlignVCenter, 7 * point, content_.date, quiet);
    text(line.translated(0, 4 * mm), Qt::AlignRight | Qt::AlignVCenter, 7 * point,
         content_.pages.value(page - 1), quiet);
}

}  // namespace marvello
