#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QSizeF>

#include "reports/ReportContent.h"

class QPainter;

namespace marvello {

/// What all pages of the report share: paper with a head and a foot. A page is laid out in hundredths of a
/// millimetre: fine enough for whole sizes of letters.
class PaperPage {
  public:
    PaperPage(QPainter& painter, const QSizeF& paper, const ReportContent& content);

  protected:
    static constexpr double mm = 100;
    static constexpr double point = 25.4 / 72 * mm;
    static constexpr double pixel = 25.4 / 96 * mm;  ///< the logical pixel of curves and their labels
    static constexpr double side = 15 * mm;
    static constexpr double bodyTop = 36 * mm;
    static constexpr double lineStep = 4.41 * mm;
    static constexpr double hairline = 0.1 * mm;

    static const QColor ink;
    static const QColor quiet;
    static const QColor faint;
    static const QColor frame;
    static const QColor headingBlue;
    static const QColor warningOrange;

    static QFont letters(double size, QFont::Weight weight = QFont::Normal);

    double right() const { return width_ - side; }
    double footTop() const { return height_ - 23 * mm; }

    /// A text in a box; one that is too wide is drawn smaller, never cut.
    void text(const QRectF& box, Qt::Alignment alignment, double size, const QString& words,
              const QColor& colour, QFont::Weight weight = QFont::Normal);
    void rule(double top, double thickness, const QColor& colour, double from, double to);

    /// Draws an envelope in a box, in logical pixels, and its legend below it. Returns where that ends.
    double paintEnvelope(const EnvelopeDrawing& envelope, const QRectF& box, int legendColumns);

    /// White paper with the head; `title` is what the page is.
    void paintHead(const QString& title);
    /// Pages count from 1.
    void paintFoot(int page);

    QPainter& painter_;
    const ReportContent& content_;

  private:
    double width_;
    double height_;
};

}  // namespace marvello
