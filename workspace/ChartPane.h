#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>
#include <vector>

#include "results/Chart.h"

namespace marvello {

class ReadOut;

/// Shows a chart, and reads its values where the mouse is. With the focus the arrow keys read it, point by
/// point, Home and End its ends, and Escape ends the reading; what is read is its accessible description.
class ChartPane : public QWidget {
    Q_OBJECT

  public:
    explicit ChartPane(QWidget* parent = nullptr);

    /// The colours of the look.
    static ChartColours onScreen();

    void setChart(Chart chart);
    /// What is shown, on white paper of a size in logical pixels.
    Drawing onPaper(const QSizeF& size) const;
    /// What is read; empty while nothing is.
    QString reading() const { return accessibleDescription(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    Drawing drawing(const QSizeF& size, const ChartColours& colours) const;
    ChartPlane plane() const;
    /// Reads the chart at one of its places; none to read nothing.
    void read(std::optional<std::size_t> place);
    /// The place next to the middle of the chart, or to its mark.
    std::size_t middle() const;
    std::size_t nearestTo(double across) const;
    void placeReadOut(double x);

    Chart chart_;
    std::vector<double> places_;  ///< at which the chart is read
    std::optional<std::size_t> read_;
    std::vector<DrawnPoint> dots_;  ///< what is read, in pixels
    ReadOut* readOut_;
    QPixmap picture_;  ///< What is shown; null after a change.
};

}  // namespace marvello
