#pragma once

#include <array>
#include <memory>
#include <vector>

#include "engine/Comparison.h"
#include "results/YearTable.h"
#include "workspace/Form.h"
#include "workspace/YearInputs.h"
#include "workspace/YearRun.h"

class QBoxLayout;
class QTimer;

namespace marvello {

class ComparisonFigures;
class EmptyPage;
class Splitter;
class YearHeads;
class YearPages;
class YearPanel;
class YearSide;
class frmpG;

/// Up to four plants over a year: what they take, cost and emit by a load profile. The results follow the
/// inputs after a pause; until then the former ones are dimmed.
class frmYear : public Form {
    Q_OBJECT

  public:
    explicit frmYear(QWidget* parent = nullptr);
    ~frmYear() override;

    /// What became of compressors that were to be added.
    struct Added {
        QString note;     ///< Of what was added or is there already.
        QString refusal;  ///< Why the rest was not added; empty if there is no rest.
    };
    /// Adds compressors with their options. Their operating point is not that of a year.
    Added add(const std::vector<ComparedChoice>& choices);
    /// True from a change of the inputs until its results are shown.
    bool isCalculating() const;
    const YearTable& table() const { return table_; }
    const YearInputs& inputs() const { return inputs_; }

    Face face() const override { return {"year", "formselection.year"}; }
    void Traduci() override;
    void MeasureUnits(int unit, bool refresh) override;
    int MeasureUnit() const override { return static_cast<int>(units_); }
    void CopyToClipBoard() override;
    void ExportCPS() override;
    void PrintReport(bool preview) override;
    void recalculate() override;
    bool canCollapse() const override { return true; }
    bool isCollapsed() const override;
    void CloseFrame(bool collapse) override;
    void keep() const override;
    bool hasResults() const override { return years_ && !isOutdated_; }
    bool canCopy() const override { return hasResults(); }
    bool canPrint() const override { return hasResults(); }
    /// "R134A · TK-A-255, TK-D-255".
    QString subject() const override;
    QString counts() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// A plant as it was typed, with the options that it was added with.
    struct Typed {
        QString text;
        clsProjectConditions conditions = conditionsAt(0, 0);
        std::string machine{};  ///< The first one, to which the options belong.
    };

    void makePanes();
    void makeResults();
    void connectParts();
    void makeKeys();
    void offerPlants();
    void plantTyped(std::size_t place);
    void showPlants();
    void changed(int pause);
    /// Reads the plants; those that cannot be read are marked.
    std::vector<YearChoice> readPlants();
    void calculate();
    void calculated(const std::shared_ptr<const YearComparison>& years);
    void setOutdated(bool isOutdated);
    void layOut();
    void relist();
    void showPages();
    void openFile();
    void takeDefaults();
    QString statusOfBin() const;
    QStringList assumptions() const;
    /// The figures as rows of texts, the heads as the first one.
    QList<QStringList> figureRows(const QString& bestMark) const;
    void showProgress();
    void hideProgress();
    /// Ends the calculation, as the user wishes.
    void giveUp();

    const YearTables tables_;
    YearInputs inputs_;
    std::array<Typed, maxYearChoices> typed_;
    UnitSystem units_ = UnitSystem::metric;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    std::shared_ptr<const YearComparison> years_;  ///< What is shown.
    YearTable table_;
    bool isOutdated_ = false;
    bool isGivenUp_ = false;
    QString failure_;
    QString unusable_;  ///< The caption of an input that cannot be used.

    Splitter* splitter_;
    QWidget* panelPane_;
    YearPanel* panel_;
    Splitter* results_;
    QWidget* top_;
    ComparisonFigures* figures_;
    YearHeads* heads_;
    YearSide* side_;
    QBoxLayout* topRow_ = nullptr;
    YearPages* pages_;
    EmptyPage* empty_;
    QWidget* veil_;     ///< over results that belong to other inputs
    QTimer* pause_;     ///< since the inputs changed
    QTimer* patience_;  ///< until a calculation shows its progress
    QTimer* follow_;    ///< the progress
    std::unique_ptr<frmpG> progress_;
    YearRun run_;  ///< the last member: it uses the others
};

}  // namespace marvello
