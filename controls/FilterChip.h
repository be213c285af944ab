#pragma once

#include <QAbstractButton>

namespace marvello {

/// A filter of a list that is on or off, with the count of what it would leave. On, it has a tick and a tint;
/// Space and a click switch it.
class FilterChip : public QAbstractButton {
    Q_OBJECT

  public:
    /// Room around the frame for the focus ring.
    static constexpr int ring = 3;
    static constexpr int chipHeight = 26;

    explicit FilterChip(QWidget* parent = nullptr);

    /// The caption, and how many rows there are with it; a negative count is not shown.
    void setFilter(const QString& caption, int count);
    /// Makes it open a list of values: it has an arrow, and a click does not switch it.
    void setOpensList();

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override;

  private:
    QString countText() const;

    int count_ = 0;
    bool opensList_ = false;
};

}  // namespace marvello
