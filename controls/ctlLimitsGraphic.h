#pragma once

#include <QWidget>

#include "controls/EnvelopeDrawing.h"

namespace marvello {

/// A plain drawing of an envelope: over limit, application limit and oil-cooling limit, each a line in its
/// colour, scaled to the corners of the whole set. No point, no captions, nothing under the mouse.
class ctlLimitsGraphic : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor MEMBER backColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(double ScaleLeft MEMBER scaleLeft_)
    Q_PROPERTY(double ScaleTop MEMBER scaleTop_)
    Q_PROPERTY(double ScaleWidth MEMBER scaleWidth_)
    Q_PROPERTY(double ScaleHeight MEMBER scaleHeight_)
    Q_PROPERTY(bool AxisVisible MEMBER axisVisible_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor AxisColor MEMBER axisColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(bool GridVisible MEMBER gridVisible_ NOTIFY appearanceChanged)
    Q_PROPERTY(double GridGap MEMBER gridGap_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor GridColor MEMBER gridColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QString TextX MEMBER textX_)
    Q_PROPERTY(QString TextY MEMBER textY_)

  public:
    explicit ctlLimitsGraphic(QWidget* parent = nullptr);

    void DrawLimits(const clsLimits& limits);
    void Refresh() { update(); }

    QSize sizeHint() const override { return {160, 110}; }

  signals:
    void appearanceChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    EnvelopeDrawing drawing_;
    QColor backColor_;
    QColor axisColor_;
    QColor gridColor_;
    QString textX_;
    QString textY_;
    double scaleLeft_ = 0;
    double scaleTop_ = 0;
    double scaleWidth_ = 0;
    double scaleHeight_ = 0;
    double gridGap_ = 5;
    bool axisVisible_ = false;
    bool gridVisible_ = false;
};

}  // namespace marvello
