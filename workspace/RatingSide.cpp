#include "workspace/RatingSide.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "controls/Hatch.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int sideWidth = 215;
constexpr int margin = 16;
constexpr int lineHeight = 20;
constexpr int legendHeight = 26;
constexpr int blockGap = 14;
constexpr int sampleWidth = 28;
constexpr int sampleHeight = 16;

}  // namespace

/// Paints the lines, and is as high as they are.
class RatingSide::Sheet : public QWidget {
  public:
    using QWidget::QWidget;

    void setFacts(const Facts& facts) {
        facts_ = facts;
        QStringList spoken{facts.title, facts.axes, facts.compressor};
        for (const auto& [name, value] : facts.conditions) spoken += name + u' ' + value;
        setAccessibleName(spoken.join(QStringLiteral(", ")));
        QImage nothing(1, 1, QImage::Format_ARGB32);
        QPainter painter(&nothing);
        setMinimumHeight(paintLines(painter));
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Look::current().surface);
        paintLines(painter);
    }

  private:
    static constexpr int room = sideWidth - 2 * margin;

    /// Returns the line below.
    static int text(QPainter& painter, int top, const QString& words, const QColor& colour,
                    QFont::Weight weight = QFont::Normal) {
        painter.setFont(lookFont(12, weight));
        painter.setPen(colour);
        const QRect box(margin, top, room, 1000);
        const QRect used = painter.boundingRect(box, Qt::TextWordWrap, words);
        painter.drawText(box, Qt::TextWordWrap, words);
        return top + std::max(used.height(), lineHeight - 4) + 4;
    }

    static void sample(QPainter& painter, const QRect& box, int kind) {
        const Look& look = Look::current();
        painter.save();
        painter.setClipRect(box.adjusted(0, 0, 1, 1));
        if (kind == 0) {
            painter.fillRect(box, look.hover);
            painter.setPen(QPen(look.accent, 1.5));
            painter.drawRect(QRectF(box).adjusted(0.75, 0.75, -0.75, -0.75));
        } else if (kind == 1) {
            constexpr int markSize = 14;
            paintMark(painter, QRect(box.center().x() - markSize / 2, box.top() + 1, markSize, markSize),
                      mark::withWarnings);
        } else {
            paintHatch(painter, box, look.controlLine);
        }
        painter.restore();
    }

    int paintLines(QPainter& painter) const {
        const Look& look = Look::current();
        if (facts_.title.isEmpty()) return 0;
        int top = text(painter, 12, facts_.title, look.text, QFont::Medium);
        top = text(painter, top, facts_.axes, look.muted) + 4;
        int kind = 0;
        for (const char* key : {"frmselection.rating.legend.point", "frmselection.rating.legend.warning",
                                "frmselection.rating.legend.none"}) {
            sample(painter, QRect(margin, top + (legendHeight - sampleHeight) / 2, sampleWidth, sampleHeight),
                   kind++);
            painter.setFont(lookFont(12));
            painter.setPen(look.text);
            painter.drawText(QRect(margin + sampleWidth + 10, top, room - sampleWidth - 10, legendHeight),
                             Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
                             dictionaryText(QLatin1String(key)));
            top += legendHeight;
        }
        top = text(painter, top + blockGap, facts_.compressor, look.text, QFont::Medium);
        for (const auto& [name, value] : facts_.conditions) {
            painter.setFont(lookFont(12));
            painter.setPen(look.muted);
            const QRect line(margin, top, room, lineHeight);
            const int valueWidth = painter.fontMetrics().horizontalAdvance(value);
            painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                             painter.fontMetrics().elidedText(name, Qt::ElideRight, room - valueWidth - 8));
            painter.setPen(look.text);
            painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, value);
            top += lineHeight;
        }
        return top + margin;
    }

    Facts facts_;
};

RatingSide::RatingSide(QWidget* parent) : QScrollArea(parent), sheet_(new Sheet(this)) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::TabFocus);  // the arrow keys scroll it
    setFixedWidth(sideWidth);
    setWidget(sheet_);
}

void RatingSide::setFacts(const Facts& facts) {
    setAccessibleName(facts.title);
    sheet_->setFacts(facts);
}

}  // namespace marvello
