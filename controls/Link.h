#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QVariant>

namespace marvello {

/// A hyperlink label: underlined while the mouse is over it or the focus is on it. It passes the click on;
/// its owner opens the target.
class Link : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor MEMBER backColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QString Caption READ text WRITE setText)
    Q_PROPERTY(QVariant Tag MEMBER tag_)

  public:
    explicit Link(const QString& caption = {}, QWidget* parent = nullptr);

    QSize sizeHint() const override;

  signals:
    void appearanceChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QColor backColor_;
    QVariant tag_;
};

}  // namespace marvello
