#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "controls/Splitter.h"
#include "inputs/SelectionInputs.h"
#include "reports/ReportContent.h"
#include "results/clsOutputs.h"
#include "workspace/Commands.h"
#include "workspace/SelectionRun.h"

class QMenu;

namespace marvello {

class CompressorPages;
class ResultsView;

/// The results of a form: the list, and below it the pages of the selected compressor.
class ResultsPane : public Splitter {
    Q_OBJECT

  public:
    /// The height of the list, in logical pixels: headings and two rows at least.
    static constexpr int minListHeight = 92;
    static constexpr int listHeightAtStart = 338;

    ResultsPane(SelectionRun& run, const SelectionInputs& inputs, QWidget* parent);

    /// Says all texts in the user's language; lists the results anew.
    void translate();
    /// Shows the list of a new run, with the compressor selected that was selected before, else the first
    /// that is possible.
    void open();
    /// Takes away all rows, and keeps which compressor was selected.
    void clear();
    /// Lists the results anew, if there are any; with the same row selected if it was.
    void list();
    void relist();
    /// Fills the page that is shown.
    void fillPage();
    bool selectPage(const QString& key);

    /// How the next list is grouped.
    void setGrouping(Grouping grouping) { run_.grouping = grouping; }
    /// How many compressors of the list have a verdict.
    int countOf(Verdict verdict) const { return run_.countOf(verdict); }
    /// The selected result; null for a group and without any.
    const ResultRow* selected() const;
    bool canCopy() const { return selected() != nullptr; }
    /// True with a compressor without error as the selected row.
    bool canPrint() const;
    /// Moves the selection by `rows`.
    void moveSelection(int rows);
    /// The report of the selected compressor; nothing without one.
    std::optional<ReportContent> report() const;
    /// Copies the selected compressors with their values, separated by tabs.
    void copy() const;
    void print(bool preview) const;

    QHash<QString, int> chosenWidths() const;
    void setChosenWidths(const QHash<QString, int>& widths);

  signals:
    void selectionChanged();

  private:
    void makeList();
    void makePopUp();
    void addToPopUp(Command command, const std::function<void()>& act);
    void openPopUp(const QPoint& place);
    void sortBy(const QString& column);
    void selectCompressor();

    SelectionRun& run_;
    const SelectionInputs& inputs_;
    clsOutputs columns_;     ///< of the list, in the user's language
    QString keptSelection_;  ///< the compressor selected when the list was put away
    ResultsView* lvCps_;
    CompressorPages* pages_;
    QMenu* mnu_cpspopup_;
    struct PopUpEntry {
        QAction* action;
        const char* textKey;
        Needs needs;
    };
    std::vector<PopUpEntry> popUpEntries_;
};

}  // namespace marvello
