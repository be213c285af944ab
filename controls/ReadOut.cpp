#include "controls/ReadOut.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int margin = 16;
constexpr int titleHeight = 36;
constexpr int rowHeight = 22;
constexpr int markSide = 14;
constexpr int gap = 8;
constexpr int below = 8;
constexpr int textFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

}  // namespace

ReadOut::ReadOut(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ReadOut::setTitle(const QString& title) {
    title_ = title;
    update();
}

void ReadOut::setValues(std::vector<Row> rows, const QString& note, const QString& itsMark) {
    const bool isAsHigh = rows.size() == rows_.size() && note == note_;
    rows_ = std::move(rows);
    note_ = note;
    mark_ = itsMark;
    QStringList spoken{title_};
    for (const Row& row : rows_) spoken += row.caption + QStringLiteral(": ") + row.value;
    if (!note_.isEmpty()) spoken += note_;
    setAccessibleName(spoken.join(u'\n'));
    setToolTip(note_);
    if (!isAsHigh) updateGeometry();
    update();
}

QRect ReadOut::noteRoom(int width) const {
    const int left = margin + markSide + gap;
    const QRect room(left, titleHeight + rowHeight * static_cast<int>(rows_.size()) + below,
                     width - left - margin, 1000);
    if (note_.isEmpty()) return {room.topLeft(), QSize(room.width(), 0)};
    return {room.topLeft(), QFontMetrics(lookFont(12)).boundingRect(room, textFlags, note_).size()};
}

int ReadOut::fittingWidth() const {
    const QFontMetrics letters(lookFont(12));
    int width = QFontMetrics(lookFont(12, QFont::Medium)).horizontalAdvance(title_);
    for (const Row& row : rows_)
        width = std::max(
            width, letters.horizontalAdvance(row.caption) + 2 * gap + letters.horizontalAdvance(row.value));
    return width + 2 * margin;
}

QSize ReadOut::sizeHint() const { return {0, heightForWidth(width())}; }

int ReadOut::heightForWidth(int width) const {
    const QRect note = noteRoom(width);
    return note.top() + note.height() + (note_.isEmpty() ? 0 : below);
}

void ReadOut::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.setFont(lookFont(12, QFont::Medium));
    painter.setPen(look.text);
    painter.drawText(QRect(margin, 0, width() - 2 * margin, titleHeight), Qt::AlignVCenter, title_);
    painter.setFont(lookFont(12));
    QRect line(margin, titleHeight, width() - 2 * margin, rowHeight);
    for (const Row& row : rows_) {
        painter.setPen(look.text);
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, row.value);
        const QFontMetrics letters = painter.fontMetrics();
        painter.setPen(look.muted);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                         letters.elidedText(row.caption, Qt::ElideRight,
                                            line.width() - letters.horizontalAdvance(row.value) - gap));
        line.translate(0, rowHeight);
    }
    if (note_.isEmpty()) return;
    const QRect note = noteRoom(width());
    if (!mark_.isEmpty()) paintMark(painter, QRectF(margin, note.top(), markSide, markSide), mark_);
    painter.setPen(look.text);
    painter.drawText(QRect(note.topLeft(), QSize(width() - note.left() - margin, note.height())), textFlags,
                     note_);
}

}  // namespace marvello
