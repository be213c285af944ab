#pragma once

#include <QRect>
#include <QString>

class QFont;
class QListWidgetItem;
class QModelIndex;
class QPainter;

namespace marvello {

/// A muted text after the name in a row of a list.
struct RowDetail {
    QString text;
    QString toolTip;  ///< of the row
};

/// Gives a row its detail. The text of the row stays the name; a screen reader reads both.
void setRowDetail(QListWidgetItem& item, const RowDetail& detail);

/// Paints the detail of a row, if it has one, in line with those of the other rows. `room` is that of name
/// and detail, `font` that of the names.
void paintRowDetail(QPainter& painter, const QRect& room, const QFont& font, const QModelIndex& index);

}  // namespace marvello
