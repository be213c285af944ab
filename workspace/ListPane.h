#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/Splitter.h"
#include "engine/AdvisedInput.h"
#include "engine/Comparison.h"
#include "inputs/SelectionInputs.h"
#include "workspace/Commands.h"
#include "workspace/UsedPoint.h"

class QMenu;
class QVBoxLayout;

namespace marvello {

class CompressorPages;
class ResultsView;
class clsCompressor;

/// A list of compressors, and below it the pages of the selected one, with the pop-up menu of both. What the
/// list holds is up to the class below.
class ListPane : public Splitter {
    Q_OBJECT

  public:
    /// The height of the list, in logical pixels: headings and two rows at least.
    static constexpr int minListHeight = 92;
    static constexpr int listHeightAtStart = 338;
    /// The same above a page that needs height.
    static constexpr int lowListHeight = 196;

    /// Says all texts in the user's language; lists the results anew.
    virtual void translate();
    /// Lists the results anew, if there are any; with the same row selected if it was.
    virtual void relist() = 0;
    /// Fills the page that is shown.
    void fillPage();
    bool selectPage(const QString& key);
    /// Shows the page `by` places further; the first one follows the last one.
    void stepPage(int by);
    /// Lets the user look for words on the page that is shown, if it can.
    void findOnPage();
    /// The height of what is above and below the list in its half.
    virtual int around() const { return 0; }
    /// The heights of the list that the user chose, by the keys of the pages.
    QHash<QString, int> listHeights() const { return heights_; }
    void setListHeights(const QHash<QString, int>& heights);
    /// The list, the tabs and the page, between which F6 goes.
    QList<QWidget*> parts() const;

    /// A row of the list with what a comparison takes of it.
    struct Listed {
        QString label;
        ComparedChoice choice;
    };
    std::vector<Listed> listedRows() const;
    std::vector<ComparedChoice> selectedChoices() const;
    /// Marks the rows that are in the comparison.
    void showCompared(const std::vector<ComparedChoice>& choices);

    virtual bool canCopy() const = 0;
    virtual bool canPrint() const = 0;
    /// Moves the selection by `rows`.
    void moveSelection(int rows);
    /// Copies the selected rows with their values, separated by tabs.
    virtual void copy() const = 0;
    virtual void print(bool preview) const = 0;

    /// The quantity of the map of the limits, by its name in files; empty for none.
    QString mapQuantity() const;
    void setMapQuantity(const QString& name);
    QHash<QString, int> chosenWidths() const;
    void setChosenWidths(const QHash<QString, int>& widths);
    /// The columns that the user showed or hid, by their keys.
    QStringList switchedColumns() const { return switchedColumns_; }
    void setSwitchedColumns(const QStringList& keys);

  signals:
    void selectionChanged();
    /// An advice on a message is to be followed; the value is in the units of the inputs.
    void adviceUsed(marvello::AdvisedInput input, double value);
    /// An operating point is to take the place of that of the inputs, in their units.
    void pointUsed(const marvello::UsedPoint& point);
    /// The selected rows are to be compared.
    void chosenToCompare(const std::vector<marvello::ComparedChoice>& choices);
    /// A row of the comparison is to leave it.
    void takenFromComparison(const marvello::ComparedChoice& choice);
    /// A page was written to a file; the note says which.
    void exported(const QString& note);

  protected:
    /// A column that the user may show or hide, and whether it is shown.
    struct OfferedColumn {
        QString key;
        QString name;
        bool isShown = true;
    };
    virtual QList<OfferedColumn> offeredColumns() const = 0;
    bool isSwitched(const std::string& column) const;

    /// The pages show numbers and the operating point of the inputs.
    ListPane(const SelectionInputs& inputs, QWidget* parent);

    /// Tells whether the pages show anything at all.
    virtual bool hasRows() const = 0;
    /// The compressor of the selected row; null without one.
    virtual const clsCompressor* selectedCompressor() const = 0;
    /// What the selected compressor was calculated for; null without one.
    virtual std::shared_ptr<const clsProjectConditions> conditions() const = 0;
    /// What a comparison takes of a row; none for the heading of a group.
    virtual std::optional<ComparedChoice> choiceOf(int row) const = 0;
    /// Adds an entry to the pop-up menu, with the text of a dictionary key.
    QAction* addToPopUp(const char* textKey, Needs needs, const std::function<void()>& act);

    const SelectionInputs& inputs_;
    ResultsView* lvCps_;
    QVBoxLayout* listColumn_;  ///< holds the list, and what is above and below it
    CompressorPages* pages_;

  private:
    void makeList();
    void makePopUp();
    void addToPopUp(Command command, const std::function<void()>& act);
    void openPopUp(const QPoint& place);
    void openColumnMenu(const QPoint& place);

    /// Whether a row is in the comparison; none for one that cannot be.
    std::optional<bool> isCompared(int row) const;
    void switchCompared(int row);

    QString currentPage() const;
    int listHeight() const;
    /// Gives the list the height that belongs to the page; the selected row stays in sight.
    void placeBar();
    void keepHeight(int height);

    QMenu* mnu_cpspopup_;
    std::vector<ComparedChoice> compared_;
    QHash<QString, int> heights_;
    struct PopUpEntry {
        QAction* action;
        const char* textKey;
        Needs needs;
    };
    std::vector<PopUpEntry> popUpEntries_;
    QStringList switchedColumns_;
};

}  // namespace marvello
