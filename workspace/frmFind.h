#pragma once

#include <QTimer>
#include <memory>

#include "workspace/FindInputs.h"
#include "workspace/FindRun.h"
#include "workspace/FoundPane.h"
#include "workspace/InputForm.h"

namespace marvello {

class frmpG;

/// A search for the compressors that have a needed capacity. The solutions follow the inputs after a pause;
/// until then the former ones are dimmed.
class frmFind : public InputForm {
    Q_OBJECT

  public:
    explicit frmFind(QWidget* parent = nullptr);
    ~frmFind() override;

    void Traduci() override;
    void ExportCPS() override;
    FormState state() const override;
    void takeOver(const FormState& state) override;
    void takeOverInputs(const InputState& inputs) override;

    /// True with solutions that belong to the inputs.
    bool hasResults() const override;
    FoundPane& results() const override { return *results_; }
    /// "6 refrigerants · all series".
    QString subject() const override;
    bool hasCounts() const override;
    QString counts() const override;
    /// True from a change of the inputs until its solutions are listed.
    bool isSearching() const { return pause_->isActive() || run_.isRunning(); }

  signals:
    /// A solution is to be opened as a selection, with this compressor selected.
    void opened(const marvello::SelectionOfCandidate& selection, const QString& compressor);

  protected:
    void calculate() override;
    void edited(const QString& caption) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// What is next to the inputs.
    enum class Shown { invitation, list, unusable, nothing, aborted, failed };

    void searchSoon();
    void search();
    void found(const std::shared_ptr<const FindResult>& result);
    void abort();
    void show(Shown what);
    void sayNothingFound();
    void followLink(int link);
    void openSelected();
    void showProgress();
    void hideProgress();

    FoundPane* results_;
    FindRun run_;
    FindRequest request_;  ///< of the newest search
    std::shared_ptr<const FindResult> last_;
    QString failure_;
    Shown shown_ = Shown::invitation;
    QTimer* pause_;     ///< since the inputs changed
    QTimer* patience_;  ///< until a search shows its progress
    QTimer* follow_;    ///< the progress
    std::unique_ptr<frmpG> progress_;
};

}  // namespace marvello
