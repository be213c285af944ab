#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

#include "results/YearTable.h"

class QGridLayout;
class QLabel;

namespace marvello {

class ComparisonFigures;
class Link;
class MessagesView;

/// The names of plants and how they are driven, above the columns of their figures.
class YearHeads : public QWidget {
    Q_OBJECT

  public:
    static constexpr int height = 56;

    YearHeads(const ComparisonFigures& figures, QWidget* parent);

    void setHeads(const std::vector<ComparedHead>& heads);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QRect columnOf(std::size_t head) const;

    const ComparisonFigures& figures_;
    std::vector<ComparedHead> heads_;
};

/// What plants differ by in a year, what the figures are not, and the warnings.
class YearSide : public QWidget {
    Q_OBJECT

  public:
    explicit YearSide(QWidget* parent);

    void show(const YearTable& table, const QStringList& assumptions);
    QWidget* warnings() const;

  private:
    void showDifferences(const YearTable& table);

    QLabel* title_;
    QWidget* rows_;
    QGridLayout* grid_;
    QLabel* against_;
    QLabel* note_;
    MessagesView* warnings_;
};

}  // namespace marvello
