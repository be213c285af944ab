#include "workspace/CycleKey.h"

#include <QFontMetrics>
#include <QPainter>
#include <utility>

#include "controls/Look.h"
#include "reports/PaintedDrawing.h"
#include "workspace/CycleDiagram.h"

namespace marvello {

namespace {

constexpr int rowHeight = 20;
constexpr int sampleWidth = 24;
constexpr int gap = 8;
constexpr int between = 16;

}  // namespace

CycleKey::CycleKey(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setFont(lookFont(12));
}

void CycleKey::setEntries(std::vector<Entry> entries) {
    entries_ = std::move(entries);
    QStringList texts;
    for (const Entry& entry : entries_) texts += entry.text;
    setAccessibleName(texts.join(QStringLiteral(", ")));
    updateGeometry();
    update();
}

template <class With>
int CycleKey::place(int width, With with) const {
    const QFontMetrics metrics(font());
    int left = 0;
    int top = 0;
    for (const Entry& entry : entries_) {
        const int wide = sampleWidth + gap + metrics.horizontalAdvance(entry.text);
        if (left > 0 && left + wide > width) {
            left = 0;
            top += rowHeight;
        }
        with(entry, left, top);
        left += wide + between;
    }
    return top + rowHeight;
}

int CycleKey::heightForWidth(int width) const {
    return place(width, [](const Entry&, int, int) {});
}

QSize CycleKey::sizeHint() const { return {0, heightForWidth(width())}; }

void CycleKey::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const CycleColours colours = CycleDiagram::onScreen();
    Drawing samples{.width = double(width()), .height = double(height()), .ground = colours.ground};
    painter.setFont(font());
    place(width(), [&](const Entry& entry, int left, int top) {
        const double middle = top + rowHeight / 2.0;
        DrawnStroke stroke = strokeOf(entry.kind, colours);
        stroke.colour = colours.muted;
        samples.shapes.emplace_back(
            DrawnLine{{{double(left), middle}, {double(left + sampleWidth), middle}}, stroke});
    });
    paintDrawing(painter, samples);
    painter.setPen(Look::current().muted);
    place(width(), [&](const Entry& entry, int left, int top) {
        painter.drawText(QRect(left + sampleWidth + gap, top, width(), rowHeight), Qt::AlignVCenter,
                         entry.text);
    });
}

}  // namespace marvello
