#pragma once

#include <QWidget>
#include <memory>

#include "controls/EnvelopeMap.h"

namespace marvello {

/// The legend of a map: its bands next to each other, with the levels between them. Hidden without one.
class MapLegend : public QWidget {
    Q_OBJECT

  public:
    explicit MapLegend(QWidget* parent = nullptr);

    void setMap(const std::shared_ptr<const EnvelopeMap>& map);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::shared_ptr<const EnvelopeMap> map_;
};

}  // namespace marvello
