#pragma once

#include <QWidget>

namespace marvello {

/// What is wrong with the value of a field, or what the field makes of it, in a bubble next to the widget
/// that holds the field, so that it hides no other input. Takes neither focus nor mouse.
class FieldNote : public QWidget {
    Q_OBJECT

  public:
    /// Stands in the window of `field`.
    explicit FieldNote(const QWidget& field);

    enum class Kind { fault, reading };

    /// Shows `text` at the height of `box`, a part of `field`.
    void say(const QString& text, const QWidget& field, const QRect& box, Kind kind = Kind::fault);
    const QString& text() const { return text_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QRect bubble() const;

    QString text_;
    Kind kind_ = Kind::fault;
    bool isBelow_ = false;  // no room next to it: the bubble hangs under the box
};

}  // namespace marvello
