#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "catalogue/clsLimits.h"

namespace marvello {

/// How far an operating point is from lines of an envelope: a sample of each line with its name, the distance
/// (below a long name), and below it what crosses it.
class LimitDistances : public QWidget {
    Q_OBJECT

  public:
    struct Row {
        int limitType;
        QString name;
        QString distance;
        QString direction;
    };

    explicit LimitDistances(QWidget* parent = nullptr);

    /// The lines of the rows are those of `limits`.
    void setRows(const QString& title, std::vector<Row> rows, const clsLimits& limits);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString title_;
    std::vector<Row> rows_;
    clsLimits limits_;
};

}  // namespace marvello
