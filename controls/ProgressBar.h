#pragma once

#include <QWidget>

namespace marvello {

/// A thin bar that fills from 0 to 100.
class ProgressBar : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE SetValue)

  public:
    explicit ProgressBar(QWidget* parent = nullptr);
    int Value() const { return value_; }
    /// Sets the percent; out of range is brought into 0 to 100.
    void SetValue(int percent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int value_ = 0;
};

}  // namespace marvello
