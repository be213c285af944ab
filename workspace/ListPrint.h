#pragma once

#include <QHash>
#include <QImage>
#include <QList>
#include <QStringList>

class QWidget;

namespace marvello {

/// A list on paper.
struct PrintedList {
    QString title;
    QStringList conditions;  ///< below the title
    QStringList columns;
    QList<QStringList> rows;
    QList<int> wordColumns;  ///< columns of words; the others hold numbers
};

/// Prints a list on A4 sheets across, on a printer that the user chooses, or shows it in a window first.
void printList(const PrintedList& list, bool preview, QWidget* window);

/// Returns a list as a table in HTML, with the name of a column above its unit.
QString tableHtml(const PrintedList& list);

/// Prints HTML with pictures by their names, on the same sheets and in the same way.
void printHtml(const QString& title, const QString& html, const QHash<QString, QImage>& pictures,
               bool preview, QWidget* window);

}  // namespace marvello
