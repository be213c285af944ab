#pragma once

#include <functional>
#include <memory>

#include "workspace/InputForm.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionRun.h"
#include "workspace/UsedPoint.h"

namespace marvello {

class frmpG;

/// A selection form: the results of the last calculation of a series. Its kind tells the fixed-speed form
/// from that of inverter compressors.
class SelectionForm : public InputForm {
    Q_OBJECT

  public:
    ~SelectionForm() override;

    void Traduci() override;
    void populateLVCPS(int groupBy);
    void ExportCPS() override;
    /// Asks for a file and writes the performance polynomials of the compressors of the list.
    void ExportPolynomials();

    void takeOverInputs(const InputState& inputs) override;
    /// Selects the compressor of a key in the next list.
    void keepSelection(const QString& compressor) { results_->keepSelection(compressor); }

    ResultsPane& results() const override;
    /// The choice of the inputs, as "R134A · TK-A", with the frequency of an inverter behind it.
    QString subject() const override;
    QString counts() const override;

  protected:
    SelectionForm(const SelectionKind& kind, QWidget* parent);

    bool isBusy() const override { return progress_ != nullptr; }
    void calculate() override;
    void edited(const QString& caption) override;

  private:
    /// Lets inputs be set and calculates; list and page stay where they are.
    void follow(const std::function<void()>& setInputs);
    /// As an advice has an input.
    void followAdvice(AdvisedInput advised, double value);
    /// At another operating point.
    void followPoint(const UsedPoint& point);
    /// Calculates in place of the results.
    void run();
    void closesplitter34(const QString& editedField = QString());

    SelectionRun run_;
    ResultsPane* results_;
    std::unique_ptr<frmpG> progress_;
};

}  // namespace marvello
