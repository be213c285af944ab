#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "catalogue/clsProjectConditions.h"
#include "engine/clsSelections.h"
#include "reports/ReportContent.h"
#include "results/ReportLines.h"
#include "results/ResultTable.h"
#include "thermo/UnitSystem.h"
#include "workspace/Commands.h"
#include "workspace/CoupleLeaders.h"
#include "workspace/EconomizerValues.h"
#include "workspace/EnteredValue.h"
#include "workspace/FormState.h"
#include "workspace/InputRules.h"
#include "workspace/SelectionKind.h"

class QMenu;
class QStackedWidget;

namespace marvello {

class AdvanceText;
class clsRefprop;
class DimensionPage;
class DropList;
class EmptyPage;
class InputPanel;
class InputSummary;
class InputsFold;
class LimitsPage;
class MessagesView;
class PolynomialsPage;
class ResultsView;
class RowSet;
class Splitter;
class TabStrip;
class TechnicalPage;
class frmpG;
struct ExportFile;

/// A selection form: the inputs on the left, and next to them what to do next or the results of the last
/// calculation. Its kind tells the fixed-speed form from that of inverter compressors.
class SelectionForm : public QWidget {
    Q_OBJECT

  public:
    ~SelectionForm() override;

    QString Key() const { return key_; }
    /// Also sets the window's title.
    void setKey(const QString& key);
    QString Description() const { return description_; }
    void setDescription(const QString& description);
    /// 0 for a form of fixed-speed compressors, 1 for one of inverter compressors.
    int TypeForm() const { return kind_.typeForm; }

    // What the main window asks of a form, by these names.
    void Traduci();
    void populateLVCPS(int groupBy);
    /// How the next list is grouped.
    void setGroupBy(int groupBy) { groupBy_ = static_cast<Grouping>(groupBy); }
    /// Lists the results anew, if there are any, with the same row selected.
    void relistResults();
    void PopulateFrame4();
    /// Shows the form in a system of units, 0 metric and 1 imperial: inputs are converted for display and
    /// keep the value that was entered. With `refresh` the results are listed anew.
    void MeasureUnits(int unit, bool refresh);
    int MeasureUnit() const { return static_cast<int>(measureUnit_); }
    void CloseFrame(bool collapse);
    /// Carries out a command by its key: "messages" selects the page of that name, "copytoclipboard" copies.
    void MnuPopUp(const QString& name);
    /// Copies the selected compressors of the list with their values, separated by tabs.
    void CopyToClipBoard();
    /// Ask for a file and write the compressors of the list with their values, or their performance
    /// polynomials.
    void ExportCPS();
    void ExportPolynomials();
    /// The report of the selected compressor; nothing without one.
    std::optional<ReportContent> selectedReport() const;
    /// Prints the report of the selected compressor, or shows it in its window.
    void PrintReport(bool preview);
    void Quit();

    /// Starts a calculation, as the button and F5 do.
    void lnkCalculate_Click();
    /// Turns of the mouse wheel over the field in use. False when the pointer is elsewhere.
    bool WheelMoved(int step);
    /// Moves the selection of the results by `rows`.
    void moveSelection(int rows);

    /// What the next form of this kind starts with.
    FormState state() const;
    /// Takes over the inputs of another form, in its own system of units, as far as the catalogue offers
    /// them.
    void takeOver(const FormState& state);

    bool hasResults() const;
    /// True with a compressor as the selected row.
    bool canCopy() const;
    /// True with a compressor without error as the selected row.
    bool canPrint() const;
    /// How many compressors of the list have a verdict.
    int countOf(Verdict verdict) const;
    /// The choice of the inputs, as "R134A · TK-A", with the frequency of an inverter behind it.
    QString subject() const;
    bool isCollapsed() const;
    /// How wide the inputs stand; to be kept between starts.
    int panelWidth() const;
    void setPanelWidth(int width);
    int listHeight() const;
    void setListHeight(int height);

  signals:
    /// What the main window shows of the form has changed.
    void stateChanged();
    /// The user moved a splitter.
    void sizesChanged();
    /// Help was asked for where no field has any.
    void guideRequested();
    /// A file was written; `note` says what it holds and where it is.
    void exported(const QString& note);

  protected:
    SelectionForm(const SelectionKind& kind, QWidget* parent);

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // SelectionForm.cpp
    void makePanes();
    void makePages(QWidget* Frame4);
    void makePopUp();
    void openPopUp(const QPoint& place);
    void tabChanged();
    void applySet(const QString& key);
    void translatePages();

    // SelectionInputs.cpp
    void connectInputs();
    void connectCoupledFields();
    void connectModes();
    /// Puts the economizer's value of one mode away and shows that of another.
    void economizerModeChanged(const QString& before, const QString& mode);
    /// Keeps the value shown for its mode; without a mode it is that of the approach.
    void keepEconomizerValue();
    void writeDefaults();
    SeriesOfMarket chosenSeries() const;
    void limitFrequency();
    void PopulateInputObject(int level, const QString& value = QString());
    void populateRefrigerants(const QString& value);
    void populateSeries(const QString& value);
    void populateModels();
    void ApplySeriesRules();
    void ApplyInputMask(unsigned mask);
    void showChoice(AdvanceText* field);
    void SyncTemperatureFields(const QString& leader);
    void typedIn(AdvanceText* field);
    /// The name of a field among those that hang together: "ted" of txtTED.
    static QString nameInCouple(const AdvanceText* field);
    QList<AdvanceText*> coupleOf(const QString& name) const;
    /// Marks the field that leads a couple when its value leads nowhere, and blanks what follows it; a blank
    /// reason takes that back.
    void refuseLeader(const QString& leader, const QString& reason);
    void markDerived(const QString& leader);
    /// Shows in both couples which field leads.
    void markLeaders();
    /// Works the coupled fields out anew from those that lead.
    void followLeaders();
    /// Lets the dew temperatures lead, with all that follows from them.
    void leadByDew();
    /// Says next to a field that its value is beyond its range, and what is permitted.
    void sayRanges();
    static void sayRange(AdvanceText* field, double low, double high);
    /// Says that the evaporating temperature is above the condensing one.
    void sayOrder();
    /// Says that a value is beyond the saturation of the refrigerant, and how far that goes.
    QString noSaturation(clsRefprop& refprop) const;
    void walkPair(const AdvanceText* field);
    bool gestioneSH(bool showMessage);
    SuperheatRange superheatRange() const;
    void showUnits();
    /// Says help and refusals anew, in the language and the units of now.
    void sayAgain();
    /// Names the choice of all models in the user's language.
    void translateModels();
    void ConvertInputs(UnitSystem from, UnitSystem to);
    void convert(AdvanceText* field, UnitSystem from, UnitSystem to, UnitRule rule);
    void VisualizeHelp(const AdvanceText* field);
    /// Shows the whole help of the field in use in a box, also where the panel has no room for it; asks for
    /// the guide where there is none.
    void showHelp();
    QString captionOf(const AdvanceText* field) const;
    /// Discards results that belong to earlier inputs; `field` is where they were changed, if anywhere.
    void inputsChanged(const AdvanceText* field);
    void resetInputs();
    /// Whether the catalogue leads from a mid temperature of the refrigerant back to its dew temperature.
    bool hasMidTemperatures() const;

    // SelectionRun.cpp
    void Calculate();
    bool allInputsValid();
    std::shared_ptr<const clsProjectConditions> conditions() const;
    bool runSelection();
    void showResults();
    void closesplitter34();
    /// What stands next to the inputs while there is no list: what to do, and why the list went.
    void invite(const QString& editedField = QString());

    // SelectionResults.cpp
    void clearList();
    /// Sorts by a column whose heading was clicked.
    void sortBy(const QString& column);
    /// Selects the compressor that was selected before, else the first that is possible.
    void selectCompressor();
    /// The result in a row of the list; none for a group.
    const ResultRow* resultOf(int row) const;
    const clsCompressor* compressorOf(int row) const;

    // SelectionExports.cpp
    void exportTo(const ExportFile& file, const RowSet& records, int compressors);

    // SelectionPages.cpp
    void clearPages();
    void populateMessages(const clsCompressor& compressor);
    void populateTechnical(const clsCompressor& compressor);
    void populatePolynomials(const clsCompressor& compressor);
    void populateDimension(const clsCompressor& compressor);
    void populateLimits(const clsCompressor& compressor);
    std::vector<TechnicalEntry> technicalEntries(const clsCompressor& compressor) const;
    /// Limits and operating point in the units of the form.
    EnvelopeDrawing envelopeOf(const clsCompressor& compressor) const;

    // SelectionReport.cpp
    ReportConditions shownConditions(const clsCompressor& compressor) const;
    ReportContent reportOf(const ResultRow& row) const;

    const SelectionKind& kind_;
    QString key_;
    QString description_;
    UnitSystem measureUnit_ = UnitSystem::metric;
    Grouping groupBy_ = Grouping::byRefrigerant;
    CoupleLeaders leaders_;
    QHash<const AdvanceText*, EnteredValue> enteredValues_;
    EconomizerValues economizerValues_;
    ListOrder order_;
    const AdvanceText* helped_ = nullptr;  ///< the field whose help is shown
    QString keptSelection_;                ///< the compressor selected when the list was put away

    Splitter* Splitter1_;
    Splitter* Splitter2_;
    InputPanel* panel_;
    InputSummary* summary_;
    InputsFold* fold_;
    EmptyPage* frame2_;
    ResultsView* lvCps_;
    TabStrip* TabStrip_;
    QStackedWidget* pages_;
    MessagesView* lvMessages_;
    TechnicalPage* technical_;
    PolynomialsPage* polynomials_;
    DimensionPage* dimension_;
    LimitsPage* limits_;
    QMenu* mnu_cpspopup_;
    struct PopUpEntry {
        QAction* action;
        const char* textKey;
        Needs needs;
    };
    std::vector<PopUpEntry> popUpEntries_;
    DropList* dropList_;
    std::unique_ptr<frmpG> progress_;
    std::unique_ptr<clsSelections> Selection_;
    clsOutputs columns_;  ///< of the list, in the user's language
    ResultTable table_;
    std::vector<const ResultRow*> rows_;  ///< of the table in the rows of the list; null for a group
    FormState defaults_;
};

}  // namespace marvello
