#pragma once

#include <QAbstractButton>

namespace marvello {

/// The last row of a list with check boxes: takes what is checked. The keys of the list do so too, so it
/// takes no focus.
class ApplyRow : public QAbstractButton {
    Q_OBJECT

  public:
    explicit ApplyRow(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvello
