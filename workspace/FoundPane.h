#pragma once

#include <QStringList>
#include <memory>

#include "controls/ResultsView.h"
#include "engine/Calculator.h"
#include "results/FoundTable.h"
#include "workspace/ListPane.h"

class QLabel;

namespace marvello {

class FoundFilterBar;
class Link;

/// The solutions of a search: filters, the list, how many compressors are not possible, and the pages of the
/// selected compressor. A list that belongs to other inputs is dimmed and takes no commands.
class FoundPane : public ListPane {
    Q_OBJECT

  public:
    FoundPane(const SelectionInputs& inputs, QWidget* parent);

    void translate() override;
    void relist() override;
    int around() const override;
    /// Lists the solutions for a request, with the one selected that was selected before, else the first.
    void showResult(const std::shared_ptr<const FindResult>& result, const FindRequest& request);
    /// Dims the list while it does not belong to the inputs.
    void setOutdated(bool isOutdated);
    bool isCurrent() const { return result_ && !isOutdated_; }
    /// The result that is listed; null before the first.
    const FindResult* result() const { return result_.get(); }

    /// The selected solution; null without one.
    const Candidate* selected() const;
    bool canCopy() const override { return isCurrent() && selected() != nullptr; }
    bool canPrint() const override { return isCurrent() && !rows_.empty(); }
    void copy() const override;
    void print(bool preview) const override;
    /// The rows of the list for a file.
    RowSet records() const;
    /// Shows the compressors that are not possible, by reason.
    void showRejected() const;

    /// The controls that the tab key goes to, from the top.
    QList<QWidget*> controls() const;
    /// What the user made of the list.
    QStringList filters() const;
    void setFilters(const QStringList& names);

  signals:
    /// The selected solution is to be opened as a selection.
    void opened();

  protected:
    QList<OfferedColumn> offeredColumns() const override;
    bool hasRows() const override { return result_ != nullptr; }
    const clsCompressor* selectedCompressor() const override;
    std::optional<ComparedChoice> choiceOf(int row) const override;
    std::shared_ptr<const clsProjectConditions> conditions() const override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makeRejectedLine();
    void placeVeil();
    FoundStyle style() const;
    std::vector<ResultsView::Column> viewColumns() const;
    ResultsView::Row viewRow(const FoundRow& row) const;
    QStringList captions() const;
    QStringList cellsOf(const Candidate& candidate) const;
    void refreshRejected();
    void refreshPutBack();
    void sortBy(const QString& column);

    std::shared_ptr<const FindResult> result_;
    FindRequest request_;
    std::vector<ResultColumn> columns_;   ///< hidden ones too
    std::vector<const Candidate*> rows_;  ///< of the list
    FoundOrder order_;
    QString kept_;  ///< the solution selected when the list was replaced
    bool isOutdated_ = false;
    mutable Calculator calculator_;  ///< of the selected compressor

    FoundFilterBar* filters_;
    QWidget* rejectedLine_;
    QLabel* rejectedText_;
    QLabel* putBackText_;  ///< of the selected solution
    Link* rejectedLink_;
    QWidget* veil_;
};

}  // namespace marvello
