#pragma once

#include <QList>
#include <QPair>
#include <QScrollArea>
#include <QString>

namespace marvello {

/// What is next to a rating table: what it shows, what its cells mean, and the compressor with its
/// conditions.
class RatingSide : public QScrollArea {
    Q_OBJECT

  public:
    explicit RatingSide(QWidget* parent);

    struct Facts {
        QString title;  ///< "Capacity, kW"
        QString axes;   ///< "Across: ..."
        QString compressor;
        QList<QPair<QString, QString>> conditions;  ///< name and value
    };
    void setFacts(const Facts& facts);

  private:
    class Sheet;
    Sheet* sheet_;
};

}  // namespace marvello
