#pragma once

#include <QList>
#include <QWidget>
#include <utility>

class QLabel;
class QScrollArea;

namespace marvello {

class PhotoLabel;

/// The technical data of a model beside its photo. The text can be selected and copied.
class TechnicalPage : public QWidget {
    Q_OBJECT

  public:
    /// A caption and its value.
    using Entry = std::pair<QString, QString>;

    explicit TechnicalPage(QWidget* parent = nullptr);

    /// Names the page for a screen reader.
    void setCaption(const QString& caption);
    /// Empties text and photo, and forgets what the catalogue put there.
    void clear();
    /// What a parameter set of the catalogue put into the property `Tag`, "caption|value;...".
    QList<Entry> catalogueEntries() const;
    void setEntries(const QString& title, const QList<Entry>& entries);
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
