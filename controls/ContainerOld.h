#pragma once

#include "controls/Container.h"

namespace marvello {

/// The older panel with a title: the same panel under the property names that stored sets know it by.
class ContainerOld : public Container {
    Q_OBJECT
    Q_PROPERTY(QColor BorderColor READ BordersColor WRITE SetBordersColor)
    Q_PROPERTY(QColor ForeColor READ CaptionForeColor WRITE SetCaptionForeColor)

  public:
    using Container::Container;
};

}  // namespace marvello
