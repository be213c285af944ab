#pragma once

#include <optional>

#include "reports/ReportContent.h"
#include "results/clsOutputs.h"
#include "workspace/ListPane.h"
#include "workspace/ReportSections.h"
#include "workspace/SelectionRun.h"

namespace marvello {

/// The results of a selection: the list, and below it the pages of the selected compressor.
class ResultsPane : public ListPane {
    Q_OBJECT

  public:
    ResultsPane(SelectionRun& run, const SelectionInputs& inputs, QWidget* parent);

    void translate() override;
    /// Shows the list of a new run, with the compressor selected that was selected before, else the first
    /// that is possible.
    void open();
    /// The same at the place where the list was put away: scrolled as it was, with the focus on the page.
    void openAgain();
    /// Takes away all rows, and keeps which compressor was selected.
    void clear();
    /// Lists the results anew, if there are any; with the same row selected if it was.
    void list();
    void relist() override;

    /// How the next list is grouped.
    void setGrouping(Grouping grouping) { run_.grouping = grouping; }
    /// How many compressors of the list have a verdict.
    int countOf(Verdict verdict) const { return run_.countOf(verdict); }
    /// The selected result; null for a group and without any.
    const ResultRow* selected() const;
    bool canCopy() const override { return selected() != nullptr; }
    /// True with a compressor without error as the selected row.
    bool canPrint() const override;
    /// The report of the selected compressor, with the sections that the user has chosen; nothing without
    /// one.
    std::optional<ReportContent> report() const;
    /// Copies the selected compressors with their values, separated by tabs.
    void copy() const override;
    void print(bool preview) const override;
    /// Selects the compressor of a key in the next list.
    void keepSelection(const QString& key) { keptSelection_ = key; }

  protected:
    QList<OfferedColumn> offeredColumns() const override;
    bool hasRows() const override { return run_.hasResults(); }
    const clsCompressor* selectedCompressor() const override;
    std::optional<ComparedChoice> choiceOf(int row) const override;
    std::shared_ptr<const clsProjectConditions> conditions() const override { return run_.conditions(); }

  private:
    /// Those that the report of the selected compressor can have.
    std::vector<OfferedSection> sections() const;
    /// Shows the report with the section of a page.
    void printPage(const QString& section) const;
    void showPreview(const QStringList& chosen) const;
    void sortBy(const QString& column);
    void selectCompressor();

    SelectionRun& run_;
    clsOutputs columns_;  ///< of the list, in the user's language
    // What the list was when it was put away.
    QString keptSelection_;  ///< the compressor selected
    QPoint keptScroll_;
};

}  // namespace marvello
