#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

class QPainter;

namespace marvello::scenes {

/// A widget that shows controls or a drawing: the gallery puts it on the screen, a test compares its picture.
struct Scene {
    const char* name;
    std::function<std::unique_ptr<QWidget>()> make;
    /// Brings up the states that need an event, once the widget is shown.
    std::function<void(QWidget&)> bringUp = [](QWidget&) {};
};

Scene controlScene();
Scene fieldScene();
Scene listScene();
Scene filterScene();
/// Bars above a page with a segmented selector.
Scene pageBarScene();
Scene graphScene();
Scene pageScene();
Scene adviceScene();
Scene reportScene();
/// Envelopes on paper, as the report has them, and what the mouse finds of them.
Scene envelopeScene();
/// Every record that a metafile is drawn from.
Scene metafileScene();
/// Every construct of a rich text that is read.
Scene richTextScene();

/// A drawing of a fixed size.
class Painted : public QWidget {
  public:
    using Paint = std::function<void(QPainter&, const QRectF& room)>;
    Painted(const QSize& size, Paint paint, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Paint paint_;
};

}  // namespace marvello::scenes
