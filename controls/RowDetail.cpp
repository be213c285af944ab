#include "controls/RowDetail.h"

#include <QAbstractItemModel>
#include <QFontMetrics>
#include <QListWidgetItem>
#include <QPainter>
#include <algorithm>

#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int detailRole = Qt::UserRole + 1;
constexpr int gap = 12;
constexpr int letterSize = 12;

}  // namespace

void setRowDetail(QListWidgetItem& item, const RowDetail& detail) {
    item.setData(detailRole, detail.text);
    item.setData(Qt::AccessibleTextRole, item.text() + QStringLiteral(", ") + detail.text);
    item.setToolTip(detail.toolTip);
}

void paintRowDetail(QPainter& painter, const QRect& room, const QFont& font, const QModelIndex& index) {
    const QString detail = index.data(detailRole).toString();
    if (detail.isEmpty()) return;
    const QFontMetrics names(font);
    int widest = 0;
    for (int row = 0; row < index.model()->rowCount(); ++row)
        widest = std::max(widest, names.horizontalAdvance(index.siblingAtRow(row).data().toString()));
    const QRect box = room.adjusted(widest + gap, 0, 0, 0);
    painter.setPen(Look::current().muted);
    painter.setFont(lookFont(letterSize));
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(detail, Qt::ElideRight, box.width()));
}

}  // namespace marvello
