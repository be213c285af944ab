#pragma once

#include <QWidget>
#include <vector>

#include "results/TechnicalData.h"

class QLabel;
class QScrollArea;

namespace marvello {

class PhotoLabel;

/// The technical data of a model next to its photo. The text can be selected and copied.
class TechnicalPage : public QWidget {
    Q_OBJECT

  public:
    explicit TechnicalPage(QWidget* parent = nullptr);

    /// Names the page for a screen reader.
    void setCaption(const QString& caption);
    /// Empties text and photo.
    void clear();
    void setEntries(const QString& title, const std::vector<TechnicalEntry>& entries);
    /// A null picture leaves the place empty.
    void setPhoto(const QImage& photo);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QScrollArea* PicScroll_;
    QLabel* picTecnic_;
    PhotoLabel* ImageCPS_;
};

}  // namespace marvello
