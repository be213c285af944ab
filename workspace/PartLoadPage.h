#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "catalogue/PreparedCatalogue.h"
#include "inputs/SelectionInputs.h"
#include "results/PartLoadSheet.h"
#include "workspace/PartLoadRule.h"
#include "workspace/PartLoadRun.h"

class QTimer;

namespace marvello {

class ChartPane;
class Hairline;
class PartLoadBar;
class ResultsView;

/// A compressor at its capacity steps or over the frequencies of its inverter, and how it meets a part of its
/// load: a table, and next to it a chart. It is calculated out of the way of the window.
class PartLoadPage : public QWidget {
    Q_OBJECT

  public:
    explicit PartLoadPage(const SelectionInputs& inputs, QWidget* parent = nullptr);

    void translate();
    /// Empties the page.
    void clear();
    /// Shows a compressor from the operating point of its calculation downwards. One without any capacity
    /// there has none.
    void showCompressor(const clsCompressor& compressor, const clsProjectConditions& conditions);

    /// By what it is calculated, as the bar has it.
    PartLoadRule rule() const;

    /// True while a table is on its way.
    bool isCalculating() const { return isCalculating_; }

  signals:
    /// A file was written; the note says which.
    void exported(const QString& note);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void start();
    void show(const PartLoadTable& table);
    void fill();
    void say(const QString& sentence);
    void showParts();
    void copy() const;
    void write();

    const SelectionInputs& inputs_;
    PartLoadBar* bar_;
    ResultsView* list_;
    Hairline* between_;
    ChartPane* chart_;
    QTimer* patience_;
    QTimer* typing_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    const PreparedCompressor* compressor_ = nullptr;
    clsProjectConditions conditions_;
    std::optional<PartLoadTable> table_;  ///< with a full capacity
    bool isCalculating_ = false;
    PartLoadRun run_;
};

}  // namespace marvello
