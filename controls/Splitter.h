#pragma once

#include <QColor>
#include <QPointer>
#include <QWidget>

class QTimer;

namespace marvello {

/// Divides its area in two by a bar that can be dragged. The halves are named: a sibling or a child of the
/// splitter with that name, without regard to case, is taken in and placed. A name that nothing bears leaves
/// its half empty. Sizes are logical pixels along the direction that is divided.
class Splitter : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int BorderStyle MEMBER borderStyle_)
    Q_PROPERTY(QColor SplitterDragColor MEMBER splitterDragColor_)
    Q_PROPERTY(QColor SplitterBackColor MEMBER splitterBackColor_)
    Q_PROPERTY(int Orientation READ Orientation WRITE SetOrientation)
    Q_PROPERTY(int SplitterSize READ SplitterSize WRITE SetSplitterSize)
    Q_PROPERTY(int Maintain MEMBER maintain_)
    Q_PROPERTY(int SplitterPos READ SplitterPos WRITE SetSplitterPos)
    Q_PROPERTY(float RatioFromTop READ RatioFromTop WRITE SetRatioFromTop)
    Q_PROPERTY(QString Child1 READ Child1 WRITE SetChild1)
    Q_PROPERTY(QString Child2 READ Child2 WRITE SetChild2)
    Q_PROPERTY(int MaxSize READ MaxSize WRITE SetMaxSize)
    Q_PROPERTY(int MaxSizeAppliesTo MEMBER maxSizeAppliesTo_)
    Q_PROPERTY(int MinSize1 READ MinSize1 WRITE SetMinSize1)
    Q_PROPERTY(int MinSize2 READ MinSize2 WRITE SetMinSize2)
    Q_PROPERTY(int MinSizeAux MEMBER minSizeAux_)
    Q_PROPERTY(bool AllowResize MEMBER allowResize_)
    Q_PROPERTY(bool LiveUpdate MEMBER liveUpdate_)
    Q_PROPERTY(bool ClipCursor MEMBER clipCursor_)
    Q_PROPERTY(int CurrSplitterPos READ CurrSplitterPos)
    Q_PROPERTY(float CurrRatioFromTop READ CurrRatioFromTop)

  public:
    explicit Splitter(QWidget* parent = nullptr);

    /// 0: the bar divides left and right; 1: top and bottom.
    int Orientation() const { return orientation_; }
    void SetOrientation(int orientation);
    int SplitterSize() const { return splitterSize_; }
    void SetSplitterSize(int size);
    /// The wanted position.
    int SplitterPos() const { return splitterPos_; }
    void SetSplitterPos(int position);
    /// The wanted position as a ratio of the whole.
    float RatioFromTop() const { return ratioFromTop_; }
    void SetRatioFromTop(float ratio);
    QString Child1() const { return child1_; }
    void SetChild1(const QString& name);
    QString Child2() const { return child2_; }
    void SetChild2(const QString& name);
    int MaxSize() const { return maxSize_; }
    void SetMaxSize(int size);
    int MinSize1() const { return minSize1_; }
    void SetMinSize1(int size);
    int MinSize2() const { return minSize2_; }
    void SetMinSize2(int size);

    /// The position in force, and its ratio of the whole.
    int CurrSplitterPos() const { return current_; }
    float CurrRatioFromTop() const;

  signals:
    /// The user ended a drag.
    void moved();
    /// The user double clicked the bar.
    void doubleClicked();

  protected:
    void enterEvent(QEnterEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    int total() const;
    int along(const QPoint& point) const { return orientation_ == 0 ? point.x() : point.y(); }
    QRect barRect() const;
    QRect half(int from, int to) const;
    QWidget* taken(const QString& name);
    int clamped(int position) const;
    void moveTo(int position);
    void place();
    void endDrag(bool keep);

    QColor splitterDragColor_ = 0x808080;
    QColor splitterBackColor_;
    QString child1_;
    QString child2_;
    int borderStyle_ = 0;
    int orientation_ = 0;
    int splitterSize_ = 5;
    int maintain_ = 0;
    int splitterPos_ = 0;
    float ratioFromTop_ = 0.5F;
    int maxSize_ = 0;
    int maxSizeAppliesTo_ = 0;
    int minSize1_ = 17;
    int minSize2_ = 17;
    int minSizeAux_ = 0;
    bool allowResize_ = true;
    bool liveUpdate_ = true;
    bool clipCursor_ = false;

    QWidget* dragBar_;  // over the halves while only the bar follows the mouse
    QTimer* Timer1_;    // sees the mouse leave the window
    int current_ = 0;
    int dragStart_ = 0;
    int grabOffset_ = 0;
    bool dragging_ = false;
    bool hovered_ = false;
};

}  // namespace marvello
