#pragma once

#include <QColor>
#include <QFont>
#include <QWidget>

namespace marvello {

/// A panel with a title line. Its children are in the rectangle that InternalLeft, InternalTop,
/// InternalWidth and InternalHeight report; the owner lays them out when `resized` is emitted. Colours that
/// are not set follow the look. A blank in front of the caption is kept and not drawn.
class Container : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor MEMBER backColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor CaptionForeColor READ CaptionForeColor WRITE SetCaptionForeColor)
    Q_PROPERTY(bool BorderVisible MEMBER borderVisible_ NOTIFY appearanceChanged)
    Q_PROPERTY(QFont Font MEMBER captionFont_ NOTIFY appearanceChanged)
    Q_PROPERTY(QString CaptionText MEMBER captionText_ NOTIFY appearanceChanged)
    Q_PROPERTY(bool CaptionVisible MEMBER captionVisible_ NOTIFY appearanceChanged)
    Q_PROPERTY(int CaptionAlignment MEMBER captionAlignment_ NOTIFY appearanceChanged)
    Q_PROPERTY(bool Border3D MEMBER border3D_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BorderLeftColor MEMBER borderLeftColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BorderTopColor MEMBER borderTopColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BorderRightColor MEMBER borderRightColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BorderBottomColor MEMBER borderBottomColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BordersColor READ BordersColor WRITE SetBordersColor)
    Q_PROPERTY(int BorderRightGap MEMBER borderRightGap_ NOTIFY appearanceChanged)
    Q_PROPERTY(int BorderBottomGap MEMBER borderBottomGap_ NOTIFY appearanceChanged)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(int InternalHeight READ InternalHeight)
    Q_PROPERTY(int InternalWidth READ InternalWidth)
    Q_PROPERTY(int InternalLeft READ InternalLeft)
    Q_PROPERTY(int InternalTop READ InternalTop)
    Q_PROPERTY(WId hWnd READ winId)

  public:
    static constexpr int titleHeight = 40;

    explicit Container(QWidget* parent = nullptr);

    /// The title; also read by its name as a property.
    void SetCaptionText(const QString& text);
    QColor CaptionForeColor() const { return captionForeColor_; }
    void SetCaptionForeColor(const QColor& colour);
    QColor BordersColor() const { return borderTopColor_; }
    void SetBordersColor(const QColor& colour);

    QList<QWidget*> Controls() const;
    int Border() const { return borderVisible_ ? 1 : 0; }
    int InternalLeft() const { return Border(); }
    int InternalTop() const { return Border() + (captionVisible_ ? titleHeight : 0); }
    int InternalWidth() const { return width() - 2 * Border() - borderRightGap_; }
    int InternalHeight() const { return height() - InternalTop() - Border() - borderBottomGap_; }
    void Refresh();

  signals:
    void appearanceChanged();
    void resized();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void PaintPic(QPainter& painter) const;

    QColor backColor_;
    QColor captionForeColor_;
    QColor borderLeftColor_;
    QColor borderTopColor_;
    QColor borderRightColor_;
    QColor borderBottomColor_;
    QFont captionFont_;
    QString captionText_;
    int captionAlignment_ = 0;
    int borderRightGap_ = 0;
    int borderBottomGap_ = 0;
    bool borderVisible_ = false;
    bool border3D_ = false;  // kept for stored sets; the look has no relief
    bool captionVisible_ = true;
};

}  // namespace marvello
