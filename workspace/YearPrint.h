#pragma once

#include <QList>
#include <QStringList>
#include <vector>

#include "workspace/ListPrint.h"

class QWidget;

namespace marvello {

/// A year on paper; the first rows of the tables are their heads.
struct PrintedYear {
    QString title;
    QString subject;
    QList<QStringList> figures;
    QString best;  ///< What the mark of the best values means.
    QString differencesTitle;
    QStringList differences;  ///< Empty for one plant.
    QStringList warnings;
    std::vector<PrintedCharts> charts;
    QString binsTitle;
    QList<QStringList> bins;
    QString assumptionsTitle;
    QStringList assumptions;
};

/// Prints a year on A4 sheets across, on a printer that the user chooses, or shows it in a window first.
void printYear(const PrintedYear& year, bool preview, QWidget* window);

}  // namespace marvello
