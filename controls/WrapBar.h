#pragma once

#include <QWidget>

namespace marvello {

/// A bar above a page or a list: its controls next to each other, in as many lines as its width asks for,
/// with a hairline below. It is as high as its lines.
class WrapBar : public QWidget {
    Q_OBJECT

  public:
    static constexpr int lineHeight = 44;

    explicit WrapBar(QWidget* parent = nullptr);

    /// Adds a control at the end, whose size hint holds; one that is wider than the bar gets as much as the
    /// bar has, down to its minimum. `ring` is the room around its frame.
    void add(QWidget* control, int ring);
    /// The controls in their order.
    QList<QWidget*> controls() const;
    /// Adds a line between two groups.
    void addSeparator();
    /// Places the controls anew; to be called when one of them became wider or is hidden.
    virtual void layOut();

  protected:
    /// What is left of the last line.
    QRect freeRoom() const;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Entry {
        QWidget* control;
        int ring;
        bool isSeparator;
    };
    int widthOf(const QWidget& control, int ring, int left) const;

    QList<Entry> entries_;
    int end_ = 0;  ///< of the controls in the last line
};

}  // namespace marvello
