#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

namespace marvello {

/// A rounded panel whose upper or left part may be a gradient, closed by a line.
class ctlRoundRectangle : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool Gradient MEMBER gradient_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor GradientColorStart MEMBER gradientColorStart_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor GradientColorStop MEMBER gradientColorStop_ NOTIFY appearanceChanged)
    /// The direction of the fill: 0 horizontal, 1 vertical.
    Q_PROPERTY(int GradientFillRect MEMBER gradientFillRect_ NOTIFY appearanceChanged)
    Q_PROPERTY(int CornerSize MEMBER cornerSize_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor RectBorderColor MEMBER rectBorderColor_ NOTIFY appearanceChanged)
    /// 1: GradientSizeValue is a percentage of the height; otherwise a length.
    Q_PROPERTY(int GradientSizeMode MEMBER gradientSizeMode_ NOTIFY appearanceChanged)
    Q_PROPERTY(int GradientSizeValue MEMBER gradientSizeValue_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor RectInteriorColor MEMBER rectInteriorColor_ NOTIFY appearanceChanged)
    /// 0: at the top, 1: on the left.
    Q_PROPERTY(int GradientPosition MEMBER gradientPosition_ NOTIFY appearanceChanged)
    Q_PROPERTY(QImage Image READ Image)
    Q_PROPERTY(WId hWnd READ winId)

  public:
    explicit ctlRoundRectangle(QWidget* parent = nullptr);

    /// What the panel shows, at the resolution of its screen.
    QImage Image() const;

  signals:
    void appearanceChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paint(QPainter& painter) const;
    void paintGradient(QPainter& painter) const;

    bool gradient_ = false;
    QColor gradientColorStart_;
    QColor gradientColorStop_;
    int gradientFillRect_ = 1;
    int cornerSize_ = 12;
    QColor rectBorderColor_;
    int gradientSizeMode_ = 1;
    int gradientSizeValue_ = 100;
    QColor rectInteriorColor_;
    int gradientPosition_ = 0;
};

}  // namespace marvello
