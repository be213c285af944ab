#pragma once

#include <QDialog>

class QHBoxLayout;
class QVBoxLayout;

namespace marvello {

class Grip;
class ctlBtn;

/// A floating window of the program: a title line by which it is moved, a body, and buttons at the lower
/// right.
class DialogFrame : public QDialog {
    Q_OBJECT

  public:
    explicit DialogFrame(const QString& title, QWidget* parent = nullptr);

    /// Where the content goes.
    QVBoxLayout* body() { return body_; }
    void addButton(ctlBtn* button);
    /// Lets the content reach the edges of the window, for pages with margins of their own.
    void setEdgeToEdge();
    /// Lets the user change the size, which begins at `initial`; otherwise the content decides.
    void setResizable(const QSize& initial);
    /// Sets the window's alpha, 0 to 255.
    void Transparency(int alpha);

  protected:
    /// Enter presses the main button, from wherever the focus is.
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void fitContent();

    QVBoxLayout* body_;
    QHBoxLayout* buttons_;
    QWidget* close_;
    ctlBtn* main_ = nullptr;
    Grip* grip_ = nullptr;
    QPoint grabbed_;
    bool moving_ = false;
};

}  // namespace marvello
