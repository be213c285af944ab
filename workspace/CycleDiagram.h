#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "results/CycleDrawing.h"

class QLabel;

namespace marvello {

/// The diagram of a cycle: pressure over enthalpy with the numbered states. A state is chosen by a click, or
/// by the arrow keys, which go round the cycle. The wheel, or plus and minus, show a smaller part of it,
/// which can be moved; a double click, or the key 0, shows all of it again.
class CycleDiagram : public QWidget {
    Q_OBJECT

  public:
    /// What is drawn. `reading` says what the refrigerant is at a point, in lines.
    struct Content {
        std::shared_ptr<const Cycle> cycle{};
        std::shared_ptr<const PhDiagram> diagram{};
        UnitSystem units = UnitSystem::metric;
        QString title{};
        std::function<QString(const PhPoint&)> reading{};
    };

    explicit CycleDiagram(QWidget* parent = nullptr);

    /// The colours of the look.
    static CycleColours onScreen();

    void setContent(Content content);
    /// Fills the point of a state; none is filled without one.
    void choose(std::optional<std::size_t> state);
    /// What is shown, on white paper.
    Drawing onPaper() const;

  signals:
    void stateChosen(std::size_t state);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool isWhole() const { return shown_ == content_.diagram->range; }
    PhPlane plane() const;
    Drawing drawing(const CycleColours& colours, std::optional<std::size_t> chosen) const;
    void showPart(const PhRange& range);
    /// Shows `steps` smaller a part, with what is at a place staying there.
    void zoom(double steps, const DrawnPoint& fixed);
    void moveBy(const QPointF& distance);
    void step(int by);
    void read(const QPointF& place);
    void redraw();

    Content content_;
    PhRange shown_;
    std::optional<std::size_t> chosen_;
    QPixmap picture_;  ///< What is shown; null after a change.
    std::optional<QPointF> dragged_;
    QLabel* reading_;
};

}  // namespace marvello
