#pragma once

#include <QSizeF>

#include "reports/ReportContent.h"

class QPainter;

namespace marvello {

/// Paints the page of a section. Pages count from 1, the first section is on page 2. See paintReport().
void paintSection(QPainter& painter, const QSizeF& paper, const ReportContent& content, int page);

}  // namespace marvello
