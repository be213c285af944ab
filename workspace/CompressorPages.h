#pragma once

#include <QWidget>
#include <memory>

#include "engine/AdvisedInput.h"
#include "engine/Performance.h"
#include "inputs/SelectionInputs.h"
#include "workspace/ReportSections.h"
#include "workspace/UsedPoint.h"

class QStackedWidget;

namespace marvello {

class AdvisedMessages;
class CalculationPage;
class CyclePage;
class DimensionPage;
class LimitsPage;
class MappedLimits;
class MessagesView;
class PartLoadPage;
class PolynomialsPage;
class RatingPage;
class TabStrip;
class TechnicalPage;
class clsCompressor;

/// The pages of a compressor below the list of results, with their tabs. Fills the one that is shown.
class CompressorPages : public QWidget {
    Q_OBJECT

  public:
    CompressorPages(const SelectionInputs& inputs, QWidget* parent);

    struct Page {
        const char* key;          ///< of the tab
        const char* textKey;      ///< of the tab's text
        const char* menuTextKey;  ///< of the entry in the pop-up menu
        bool needsHeight = false;
    };
    /// All pages, in the order of their tabs.
    static std::span<const Page> all();

    /// Says all texts in the user's language.
    void translate();
    /// Empties all pages, and shows those of a compressor, null for none. `group` is the tool tip of the
    /// tabs. The `conditions` are those of its calculation.
    void showCompressor(const clsCompressor* compressor, const QString& group = QString(),
                        const std::shared_ptr<const clsProjectConditions>& conditions = nullptr);
    /// Shows from now on what to do about messages, takes operating points and prints; says with
    /// adviceUsed(), pointUsed() and printWanted() what the user follows.
    void setFollowed();
    /// What the user chose on the pages, for their sections of a report.
    SectionChoices sectionChoices() const;
    /// The quantity of the map on the page of the limits, by its name in files; empty for none.
    QString mapQuantity() const;
    void setMapQuantity(const QString& name);
    /// Gives the focus to the page that is shown.
    void focusPage();
    /// Lets the user type what to look for, if the page has a field for it.
    void findOnPage();
    /// Selects a page by its key. False for a key that no page has.
    bool select(const QString& key);
    /// Selects the page `by` places further, round the tabs. A focus in the page stays in it.
    void step(int by);
    int current() const;
    /// The row of tabs, and the page that is shown.
    QWidget* tabs() const;
    QWidget* page() const;

  signals:
    void pageChanged();
    /// A page is to be printed as a section of the report.
    void printWanted(const QString& section);
    /// An advice on the page of messages is to be followed; the value is in the units of the inputs.
    void adviceUsed(marvello::AdvisedInput input, double value);
    /// An operating point is to take the place of that of the inputs, in their units.
    void pointUsed(const marvello::UsedPoint& point);
    /// A file was written; the note says which.
    void exported(const QString& note);

  private:
    QString tabText(QWidget* page) const;
    void clear();
    void fillTechnical(const clsCompressor& compressor);
    void fillDimension(const clsCompressor& compressor);
    void fillCycle(const clsCompressor& compressor);

    const SelectionInputs& inputs_;
    TabStrip* TabStrip_;
    QStackedWidget* pages_;
    MessagesView* lvMessages_;
    AdvisedMessages* messages_;
    bool isAdvised_ = false;
    TechnicalPage* technical_;
    PolynomialsPage* polynomials_;
    DimensionPage* dimension_;
    LimitsPage* limits_;
    MappedLimits* mappedLimits_;
    RatingPage* rating_;
    CyclePage* cycle_;
    CalculationPage* calculation_;
    PartLoadPage* partLoad_;
};

}  // namespace marvello
