#include "controls/AdviceLine.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "controls/Link.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int between = 24;
constexpr int rightMargin = 16;
constexpr int lineHeight = 25;
constexpr int minEffectWidth = 180;
constexpr int wrapped = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

/// With a pixel for what the letters of another script are rounded by.
int widthOf(const QString& text) {
    return text.isEmpty() ? 0 : QFontMetrics(lookFont()).horizontalAdvance(text) + 2;
}

int heightOf(const QString& text, int width) {
    return QFontMetrics(lookFont()).boundingRect(QRect(0, 0, width, 10000), wrapped, text).height();
}

}  // namespace

void AdviceLine::Columns::widenFor(const AdviceLine& line) {
    if (!line.link_) return;
    text = std::max(text, widthOf(line.texts_.text));
    step = std::max(step, widthOf(line.texts_.step));
    use = std::max(use, line.link_->sizeHint().width());
}

AdviceLine::AdviceLine(Texts texts, QWidget* parent) : QWidget(parent), texts_(std::move(texts)) {
    QStringList spoken{texts_.text, texts_.step, texts_.effect};
    spoken.removeAll(QString());
    setAccessibleName(spoken.join(QStringLiteral(", ")));
    if (texts_.use.isEmpty()) return;
    link_ = new Link(texts_.use, this);
    link_->setAccessibleName(texts_.use + QStringLiteral(": ") + texts_.text);
    link_->setAccessibleDescription(texts_.effect);
    connect(link_, &Link::clicked, this, &AdviceLine::used);
    link_->installEventFilter(this);
    setFocusProxy(link_);
}

bool AdviceLine::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) emit focused();
    return QWidget::eventFilter(watched, event);
}

AdviceLine::Places AdviceLine::placesIn(int width, int left, const Columns& columns) const {
    const int right = width - rightMargin;
    const int rowHeight = QFontMetrics(lookFont()).height();
    Places places;
    if (!link_) {
        places.height = lineHeight - rowHeight + heightOf(texts_.text, right - left);
        places.text = QRect(left, 0, right - left, places.height);
        return places;
    }
    const int textWidth =
        std::clamp(right - left - columns.step - columns.use - 2 * between, 40, columns.text);
    places.text = QRect(left, 0, textWidth, lineHeight);
    places.step = QRect(places.text.right() + 1 + between, 0, columns.step, lineHeight);
    places.use = QRect(places.step.right() + 1 + between, 0, columns.use, lineHeight);
    places.height = lineHeight;
    if (texts_.effect.isEmpty()) return places;
    const int effectLeft = places.use.right() + 1 + between;
    const bool isBelow = right - effectLeft < minEffectWidth;
    places.effect.setCoords(isBelow ? left : effectLeft, (lineHeight - rowHeight + 1) / 2, right, 0);
    if (isBelow) places.effect.moveTop(lineHeight);
    places.effect.setHeight(heightOf(texts_.effect, places.effect.width()));
    const int above = isBelow ? lineHeight : lineHeight - rowHeight;
    places.height = above + std::max(rowHeight, places.effect.height());
    return places;
}

int AdviceLine::heightIn(int width, int left, const Columns& columns) const {
    return placesIn(width, left, columns).height;
}

void AdviceLine::setColumns(int left, const Columns& columns) {
    left_ = left;
    columns_ = columns;
    layOut();
}

void AdviceLine::resizeEvent(QResizeEvent*) { layOut(); }

void AdviceLine::layOut() {
    places_ = placesIn(width(), left_, columns_);
    if (link_) link_->setGeometry(places_.use);
    update();
}

void AdviceLine::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.setFont(lookFont());
    if (link_) {
        painter.setPen(look.text);
        painter.drawText(places_.text, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(texts_.text, Qt::ElideRight, places_.text.width()));
    }
    painter.setPen(look.muted);
    if (!link_)
        painter.drawText(places_.text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, texts_.text);
    painter.drawText(places_.step, Qt::AlignRight | Qt::AlignVCenter, texts_.step);
    painter.drawText(places_.effect, wrapped, texts_.effect);
}

}  // namespace marvello
