#pragma once

#include <QWidget>
#include <array>
#include <memory>
#include <optional>

#include "results/YearCharts.h"
#include "results/YearSheet.h"
#include "workspace/ListPrint.h"

class QStackedWidget;

namespace marvello {

class ChartPane;
class MessagesView;
class ResultsView;
class TabStrip;

/// The pages of a year: charts over its bins, tables that say the same, and what all of it rests on.
class YearPages : public QWidget {
    Q_OBJECT

  public:
    explicit YearPages(QWidget* parent);

    void translate();
    /// To be followed by mark(), which shows the charts.
    void show(std::shared_ptr<const YearComparison> years, const YearStyle& style,
              const QStringList& assumptions);
    /// Marks a bin in charts and tables.
    void mark(std::optional<std::size_t> bin);
    void step(int by);
    TabStrip* tabs() const { return tabs_; }
    QWidget* page() const;
    /// The table of figures, with its heading, as it is shown.
    QList<QStringList> table() const;
    /// What a year takes and how long it runs, as charts of a size.
    std::vector<PrintedCharts> onPaper(const QSizeF& size) const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  signals:
    /// The user chose a bin, in a chart or a table.
    void binChosen(std::size_t bin);
    void copyRequested();

  private:
    void showCharts();
    void fill(ResultsView& list, const YearSheet& sheet);
    ResultsView* newList(const char* name);

    TabStrip* tabs_;
    QStackedWidget* stack_;
    std::array<ChartPane*, 4> charts_{};
    std::array<ResultsView*, 2> lists_{};  ///< how the machines run, and the figures
    MessagesView* assumptions_;
    std::shared_ptr<const YearComparison> years_;
    YearStyle style_;
    std::optional<std::size_t> marked_;
    bool isFilling_ = false;
};

}  // namespace marvello
