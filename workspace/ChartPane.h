#pragma once

#include <QPixmap>
#include <QWidget>

#include "results/Chart.h"

namespace marvello {

/// Shows a chart. What it says to those who cannot see it is its title; a table next to it says the values.
class ChartPane : public QWidget {
    Q_OBJECT

  public:
    explicit ChartPane(QWidget* parent = nullptr);

    /// The colours of the look.
    static ChartColours onScreen();

    void setChart(Chart chart);
    /// What is shown, on white paper of a size in logical pixels.
    Drawing onPaper(const QSizeF& size) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    Drawing drawing(const QSizeF& size, const ChartColours& colours) const;

    Chart chart_;
    QPixmap picture_;  ///< What is shown; null after a change.
};

}  // namespace marvello
