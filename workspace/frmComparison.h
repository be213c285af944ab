#pragma once

#include <QImage>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "results/ComparisonTable.h"
#include "workspace/ComparedChoices.h"
#include "workspace/ComparisonRun.h"
#include "workspace/Form.h"
#include "workspace/ListPrint.h"

class QLabel;

namespace marvello {

class ChartPane;
class ComparisonBar;
class ComparisonFigures;
class ComparisonHeads;
class EmptyPage;
class SegmentedSelector;
class Splitter;

/// Up to four compressors next to each other: their figures, their application limits over one another, and
/// capacity and COP over a temperature. It holds its own choices, whatever becomes of the lists that they
/// come from.
class frmComparison : public Form {
    Q_OBJECT

  public:
    explicit frmComparison(QWidget* parent = nullptr);
    ~frmComparison() override;

    /// What became of choices that were to be added.
    struct Added {
        QString note;     ///< Of what was added or is there already.
        QString refusal;  ///< Why the rest was not added; empty if there is no rest.
    };
    Added add(const std::vector<ComparedChoice>& choices);
    /// Takes out a choice as it was added; nothing if it is gone.
    void remove(const ComparedChoice& choice);
    const std::vector<ComparedChoice>& choices() const { return choices_.all(); }
    /// True from a change until all of it is shown.
    bool isCalculating() const { return run_.isRunning(); }
    const ComparisonTable& table() const;

    Face face() const override { return {"compare", "formselection.comparison"}; }
    void Traduci() override;
    void MeasureUnits(int unit, bool refresh) override;
    int MeasureUnit() const override { return static_cast<int>(units_); }
    /// Copies the whole table.
    void CopyToClipBoard() override;
    void ExportCPS() override;
    void PrintReport(bool preview) override;
    void recalculate() override;
    bool hasResults() const override { return comparison_ != nullptr && !choices_.all().empty(); }
    bool canCopy() const override { return hasResults(); }
    bool canPrint() const override { return hasResults(); }
    QString subject() const override;
    QString counts() const override;

  signals:
    /// A compressor of a list is to be added; its menu is wanted at a place of the screen.
    void addRequested(const QPoint& place);
    /// A choice was added or taken out.
    void choicesChanged();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makeFigures();
    void makeCharts();
    void connectParts();
    // Machines by their numbers; one that is gone stays gone.
    void takeOut(int number);
    void move(int number, int intoPlaceOf);
    void step(int number, int by);
    void openMenu(int number, const QPoint& place);
    /// Where a machine is among those that are shown; none if it is not.
    std::optional<std::size_t> shownPlaceOf(int number) const;
    /// The machine of the cell in use while the figures have the focus.
    std::optional<int> machineInUse() const;
    void setSamePoint(bool isSame);
    void setPoint(const OperatingPoint& point);
    /// The choices as they are calculated: at the same point if that was chosen.
    std::vector<ComparedChoice> calculated() const;
    void compared(const std::shared_ptr<const Comparison>& comparison);
    void relist();
    void showCharts();
    void showPages();
    QString curvesTitle() const;
    std::vector<PrintedCharts> printedCharts() const;
    /// The table as rows of texts, the heads as the first one; `bestMark` is before the best values.
    QList<QStringList> textRows(const QString& bestMark) const;
    ComparisonStyle style() const;

    ComparedChoices choices_;
    std::optional<OperatingPoint> same_;  ///< Of all machines, if they are to be at the same one.
    std::optional<int> reference_;        ///< The number of a machine.
    CurveAxis axis_ = CurveAxis::evaporating;
    UnitSystem units_ = UnitSystem::metric;
    std::shared_ptr<const Comparison> comparison_;  ///< What is shown.
    std::vector<int> shown_;                        ///< The numbers of its machines.
    std::vector<Curve> curves_;
    QString failure_;

    Splitter* splitter_;
    QWidget* figuresPane_;
    QWidget* chartsPane_;
    EmptyPage* empty_;
    ComparisonBar* bar_;
    ComparisonHeads* heads_;
    ComparisonFigures* figures_;
    QLabel* limitsTitle_;
    ChartPane* limits_;
    QLabel* curvesTitle_;
    SegmentedSelector* axes_;
    ChartPane* capacity_;
    ChartPane* cop_;
    ComparisonRun run_;  ///< the last member: it uses the others
};

}  // namespace marvello
