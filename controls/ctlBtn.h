#pragma once

#include <QAbstractButton>
#include <QColor>

namespace marvello {

/// A flat button. As the main button of its window it is filled with the accent; an icon comes before the
/// caption, a key hint is shown as a chip behind it. Colours that are not set follow the look.
class ctlBtn : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(QString Caption READ text WRITE setText)
    Q_PROPERTY(QColor ForeColor MEMBER foreColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BorderColor MEMBER borderColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BackColor MEMBER backColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor BorderColorMouseMove MEMBER borderColorMouseMove_ NOTIFY appearanceChanged)
    Q_PROPERTY(QFont Font READ font WRITE setFont)
    Q_PROPERTY(bool Main MEMBER main_ NOTIFY appearanceChanged)
    Q_PROPERTY(QString KeyHint MEMBER keyHint_ NOTIFY appearanceChanged)

  public:
    /// Room around the frame for the focus ring.
    static constexpr int ring = 4;

    explicit ctlBtn(QWidget* parent = nullptr);
    ctlBtn(const QString& caption, bool isMain, QWidget* parent = nullptr);

    QSize sizeHint() const override;

  signals:
    void appearanceChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Colours {
        QColor ground;
        QColor border;
        QColor text;
    };
    Colours colours() const;
    QFont captionFont() const;

    QColor foreColor_;
    QColor borderColor_;
    QColor backColor_;
    QColor borderColorMouseMove_;
    QString keyHint_;
    bool main_ = false;
};

}  // namespace marvello
