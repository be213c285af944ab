#include "reports/ReportPage.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/CoreText.h"
#include "controls/Icons.h"
#include "controls/Marks.h"
#include "reports/PaperPage.h"
#include "reports/SectionPages.h"

namespace marvello {

namespace {

constexpr double millimetre = 100;  // of PaperPage
constexpr double leftWidth = 84 * millimetre;
constexpr double columnGap = 6 * millimetre;
constexpr double photoHeight = 58 * millimetre;
constexpr double envelopeHeight = 96 * millimetre;
constexpr double lineText = 8.5 * 25.4 / 72 * millimetre;
constexpr double stripHeight = 15 * millimetre;

/// The parts of the first page, each drawn in its place.
class FirstPage : public PaperPage {
  public:
    using PaperPage::PaperPage;

    void paint() {
        paintHead(content_.title);
        paintPhoto();
        if (content_.showsEnvelope) paintLimits();
        paintData();
        if (content_.hasWarnings) paintWarning();
        paintFoot(1);
    }

  private:
    double stripTop() const { return footTop() - 34 * mm; }

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

    void paintLimits() {
        const QRectF box(side, bodyTop + photoHeight + 4 * mm, leftWidth, envelopeHeight);
        const double bottom = paintEnvelope(content_.envelope, box, 3);
        text({side, bottom, leftWidth, 4.4 * mm}, Qt::AlignLeft | Qt::AlignVCenter, 7 * point,
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
};

}  // namespace

int pageCount(const ReportContent& content) { return 1 + static_cast<int>(content.sections.size()); }

void paintReport(QPainter& painter, const QSizeF& paper, const ReportContent& content, int page) {
    const double dots = painter.device()->logicalDpiX() / 25.4;  // in a millimetre
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(dots / millimetre, dots / millimetre);
    if (page == 1)
        FirstPage(painter, paper, content).paint();
    else
        paintSection(painter, paper, content, page);
    painter.restore();
}

}  // namespace marvello
