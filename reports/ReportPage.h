#pragma once

#include <QSizeF>

#include "reports/ReportContent.h"

class QPainter;

namespace marvello {

/// The first page, and one for each section.
int pageCount(const ReportContent& content);

/// Paints a page of the report, from 1 on, on `paper` (millimetres, upright), from its upper left corner.
/// Screen, printer and file all get the same lines, texts and curves; the photo alone is made of points.
///
/// The colours are those of paper, whatever the look of the program.
void paintReport(QPainter& painter, const QSizeF& paper, const ReportContent& content, int page = 1);

}  // namespace marvello
