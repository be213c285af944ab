#pragma once

#include <QWidget>

#include "controls/Metafile.h"

namespace marvello {

/// The dimension drawing of a model, as large as fits.
class DimensionPage : public QWidget {
    Q_OBJECT

  public:
    explicit DimensionPage(QWidget* parent = nullptr);

    void clear();
    /// Without a drawing `emptyText` is all that the page says.
    void setDrawing(const Metafile& drawing, const QString& emptyText);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Metafile drawing_;
    QString emptyText_;
};

}  // namespace marvello
