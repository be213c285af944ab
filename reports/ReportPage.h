#pragma once

#include <QSizeF>

#include "reports/ReportContent.h"

class QPainter;

namespace marvello {

/// Paints the report on a page of `paper` (millimetres, upright), from its upper left corner. Screen, printer
/// and file all get the same lines, texts and curves; the photo alone is made of points.
///
/// The colours are those of paper, whatever the look of the program.
void paintReport(QPainter& painter, const QSizeF& paper, const ReportContent& content);

}  // namespace marvello
