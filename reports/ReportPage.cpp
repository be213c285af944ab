#include "reports/ReportPage.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/CoreText.h"
#include "controls/GraphLegend.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/Marks.h"

namespace marvello {

namespace {

// The page is laid out in hundredths of a millimetre: fine enough for whole sizes of letters.
constexpr double mm = 100;
constexpr double point = 25.4 / 72 * mm;
constexpr double pixel = 25.4 / 96 * mm;  // the logical pixel of curves and their labels

constexpr double side = 15 * mm;
constexpr double leftWidth = 84 * mm;
constexpr double columnGap = 6 * mm;
constexpr double bodyTop = 36 * mm;
constexpr double photoHeight = 58 * mm;
constexpr double envelopeHeight = 96 * mm;
constexpr double lineStep = 4.41 * mm;
constexpr double lineText = 8.5 * point;
constexpr double stripHeight = 15 * mm;
constexpr double hairline = 0.1 * mm;

const QColor ink(0x18, 0x21, 0x26);
const QColor quiet(0x55, 0x62, 0x6A);
const QColor faint(0xE4, 0xE4, 0xE4);
const QColor frame(0xC9, 0xD1, 0xD6);
const QColor headingBlue(0, 0, 255);
const QColor warningOrange(0xC9, 0x6A, 0x00);

QFont letters(double size, QFont::Weight weight = QFont::Normal) {
    QFont font = lookFont(static_cast<int>(std::lround(size)), weight);
    // A spacing that no one sees keeps "ffi" three letters, so that they are found in the file.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.02);
    return font;
}

/// The parts of a page, each drawn in its place.
class Page {
  public:
    Page(QPainter& painter, const QSizeF& paper, const ReportContent& content)
        : painter_(painter), content_(content), width_(paper.width() * mm), height_(paper.height() * mm) {}

    void paint() {
        painter_.fillRect(QRectF(0, 0, width_, height_), Qt::white);
        paintHead();
        paintPhoto();
        if (content_.showsEnvelope) paintEnvelope();
        paintData();
        if (content_.hasWarnings) paintWarning();
        paintFoot();
    }

  private:
    double right() const { return width_ - side; }
    double footTop() const { return height_ - 23 * mm; }
    double stripTop() const { return footTop() - 34 * mm; }

    /// A text in a box; one that is too wide is drawn smaller, never cut.
    void text(const QRectF& box, Qt::Alignment alignment, double size, const QString& words,
              const QColor& colour, QFont::Weight weight = QFont::Normal) {
        QFont font = letters(size, weight);
        const double needed = QFontMetricsF(font).horizontalAdvance(words);
        if (needed > box.width()) font = letters(size * box.width() / needed, weight);
        painter_.setFont(font);
        painter_.setPen(colour);
        painter_.drawText(box, static_cast<int>(alignment) | Qt::TextDontClip, words);
    }

    void rule(double top, double thickness, const QColor& colour, double from, double to) {
        painter_.fillRect(QRectF(from, top, to - from, thickness), colour);
    }

    void paintHead() {
        paintIconOnPaper(painter_, QRectF(side, 15 * mm, 30 * mm, 30 * mm * 14 / 131),
                         QStringLiteral("wordmark"), ink);
        text({width_ / 2, 11 * mm, right() - width_ / 2, 12 * mm}, Qt::AlignRight | Qt::AlignVCenter,
             20 * point, content_.model, ink);
        rule(25 * mm, 0.35 * mm, ink, side, right());
        const QRectF line(side, 27 * mm, right() - side, 4 * mm);
        text(line, Qt::AlignLeft | Qt::AlignVCenter, 7 * point, content_.title, quiet);
        text(line, Qt::AlignRight | Qt::AlignVCenter, 7 * point, content_.version, quiet);
    }

    void paintPhoto() {
        const QRectF box(side, bodyTop, leftWidth, photoHeight);
        painter_.setPen(QPen(frame, 0.15 * mm));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawRect(box);
        if (content_.photo.isNull()) return;
        const QRectF room = box.adjusted(2 * mm, 2 * mm, -2 * mm, -2 * mm);
        QRectF place(QPointF(), QSizeF(content_.photo.size()).scaled(room.size(), Qt::KeepAspectRatio));
        place.moveCenter(room.center());
        painter_.setRenderHint(QPainter::SmoothPixmapTransform);
        painter_.drawImage(place, content_.photo);
    }

    void paintEnvelope() {
        const QRectF box(side, bodyTop + photoHeight + 4 * mm, leftWidth, envelopeHeight);
        painter_.save();
        painter_.setClipRect(box);
        painter_.translate(box.topLeft());
        painter_.scale(pixel, pixel);
        content_.envelope.paint(painter_, QRectF(QPointF(), box.size() / pixel), GraphColours::onPaper());
        painter_.restore();
        paintLegend(box.bottom() + 1.5 * mm);
    }

    void paintLegend(double top) {
        const auto entries = GraphLegend::entries(content_.envelope.limits);
        constexpr int columns = 3;
        constexpr double step = 4.4 * mm;
        constexpr double sample = 5.4 * mm;
        const double column = leftWidth / columns;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const double left = side + column * static_cast<double>(i % columns);
            const double middle = top + step * (static_cast<double>(i / columns) + 0.5);
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
        const double rows = std::ceil(static_cast<double>(entries.size()) / columns);
        text({side, top + step * rows, leftWidth, step}, Qt::AlignLeft | Qt::AlignVCenter, 7 * point,
             content_.margin, quiet);
    }

    /// Where the data may end: above the warnings, or above the foot.
    double dataBottom() const { return (content_.hasWarnings ? stripTop() : footTop()) - 4 * mm; }

    // As many lines as there are must fit: long tables are set closer.
    void paintData() {
        double steps = 0;
        for (const ReportLine& line : content_.lines)
            steps += line.isHeading && &line != &content_.lines.front() ? 2 : 1;
        if (steps == 0) return;
        const double step = std::min(lineStep, (dataBottom() - bodyTop) / steps);
        const double left = side + leftWidth + columnGap;
        double top = bodyTop;
        for (const ReportLine& line : content_.lines) {
            if (line.isHeading && &line != &content_.lines.front()) top += step;
            paintLine(line, QRectF(left, top, right() - left, step), lineText * step / lineStep);
            top += step;
        }
    }

    void paintLine(const ReportLine& line, const QRectF& box, double size) {
        if (line.isHeading) {
            text(box, Qt::AlignLeft | Qt::AlignVCenter, size, fromCore(line.name), headingBlue, QFont::Bold);
            return;
        }
        const QRectF inner = box.adjusted(0, 0, -1 * mm, 0);
        const double value = QFontMetricsF(letters(size)).horizontalAdvance(fromCore(line.value));
        const double name = std::max(inner.width() * 0.35, inner.width() - value - 2 * mm);
        text({inner.left(), inner.top(), name, inner.height()}, Qt::AlignLeft | Qt::AlignVCenter, size,
             fromCore(line.name), ink);
        text({inner.left() + name + 1 * mm, inner.top(), inner.width() - name - 1 * mm, inner.height()},
             Qt::AlignRight | Qt::AlignVCenter, size, fromCore(line.value), ink);
        rule(box.bottom() - hairline, hairline, faint, box.left(), box.right());
    }

    void paintWarning() {
        const QRectF box(side, stripTop(), right() - side, stripHeight);
        painter_.setPen(QPen(ink, 0.2 * mm));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawRect(box);
        painter_.fillRect(QRectF(box.left(), box.top(), 2 * mm, box.height()), warningOrange);
        constexpr double mark = 9 * mm;
        paintMarkOnPaper(painter_, QRectF(box.left() + 7 * mm, box.center().y() - mark / 2, mark, mark),
                         mark::attention);
        const double left = box.left() + 20 * mm;
        const QRectF words(left, box.top() + 2.5 * mm, box.right() - left - 3 * mm, 5 * mm);
        text(words, Qt::AlignLeft | Qt::AlignVCenter, 9 * point, content_.warning, ink, QFont::Medium);
        text(words.translated(0, 5 * mm), Qt::AlignLeft | Qt::AlignVCenter, 9 * point, content_.warning2,
             ink);
    }

    void paintFoot() {
        rule(footTop(), 0.15 * mm, quiet, side, right());
        const QRectF line(side, footTop() + 2 * mm, right() - side, 4 * mm);
        text(line.adjusted(0, 0, -50 * mm, 0), Qt::AlignLeft | Qt::AlignVCenter, 7 * point, content_.address,
             quiet);
        text(line, Qt::AlignRight | Qt::AlignVCenter, 7 * point, content_.date, quiet);
        text(line.translated(0, 4 * mm), Qt::AlignRight | Qt::AlignVCenter, 7 * point, content_.page, quiet);
    }

    QPainter& painter_;
    const ReportContent& content_;
    double width_;
    double height_;
};

}  // namespace

void paintReport(QPainter& painter, const QSizeF& paper, const ReportContent& content) {
    const double dots = painter.device()->logicalDpiX() / 25.4;  // in a millimetre
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(dots / mm, dots / mm);
    Page(painter, paper, content).paint();
    painter.restore();
}

}  // namespace marvello
