#pragma once

#include <QMainWindow>
#include <QTranslator>
#include <array>
#include <memory>
#include <vector>

#include "workspace/Commands.h"

class QActionGroup;
class QKeyEvent;
class QLabel;
class QMdiSubWindow;
class QMenu;
class QToolBar;

namespace marvello {

class AdvanceText;
class DropList;
class Form;
class FormFocus;
class TabBand;
class TabStrip;
class InputForm;
class SelectionForm;
class WorkArea;
class frmComparison;
class frmFind;
struct ComparedChoice;
struct SelectionOfCandidate;

/// The program's frame: holds any number of forms, each with its tab.
class MDIMain : public QMainWindow {
    Q_OBJECT

  public:
    /// `version` is shown in the title, as major.minor.revision.
    explicit MDIMain(const QString& version, QWidget* parent = nullptr);
    ~MDIMain() override;

    /// Opens the start menu a moment from now, as the program does at its start.
    void openStartMenu();
    /// Lets the user choose in the start menu, and opens the form chosen.
    void newForm();
    /// Open a new form with its tab.
    SelectionForm* newSelection();
    SelectionForm* newInverterSelection();
    frmFind* newFind();
    Form* ActiveForm() const;
    QList<Form*> forms() const;

    /// Loads the dictionary of a language against the default language.
    void populateDictionary(const QString& language);
    /// Reads all captions of the frame anew.
    void Traduci();
    /// Switches the program to a language of the catalogue and keeps it for the next start.
    void chooseLanguage(const QString& language);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // MDIMain.cpp
    template <class Kind>
    Kind* openNew();
    void open(InputForm* form);
    /// Gives a form its window and its tab; `firstInUse` has the focus at first.
    void place(Form* form, QWidget* firstInUse);
    /// The form of the comparison; null while there is none.
    frmComparison* comparison() const;
    /// Adds compressors to the comparison, which is opened behind the form at hand if there is none.
    void compare(const std::vector<ComparedChoice>& choices);
    /// Marks what the comparison holds in all lists.
    void showCompared();
    /// Lets the user add a compressor of a list, from a menu at a place of the screen.
    void offerToCompare(const QPoint& place);
    /// Opens a solution of a search as a selection, and calculates it.
    void openSolution(const SelectionOfCandidate& solution, const QString& compressor);
    /// Describes a form by its number and what it is, in the user's language.
    static void describe(Form& form);
    void makeWorkArea();
    void makeStatusBar();
    void makeAlphaStamp();
    void populateLanguages();
    void OpenForms();
    void refreshState();
    void refreshStatus(const Form* form);
    void activated(QMdiSubWindow* window);
    void hideChildControls();
    void closeAll();
    void restoreSizes();
    static void keepSizes(const InputForm& form);
    /// Says for a while in the status bar what was done.
    void note(const QString& text);
    bool turnedWheel(int delta);
    bool tookKey(const QWidget& focused, const QKeyEvent& key);

    // MainCommands.cpp
    void makeCommands();
    void makeMenus();
    void makeToolBar();
    QWidget* makeSelectors();
    AdvanceText* selector(const char* name, QWidget* parent);
    /// Shows a choice without acting on it.
    static void showKey(AdvanceText* field, const QString& key);
    static void offer(AdvanceText* field, int boxWidth, const std::array<const char*, 3>& keys);
    void showGuide();
    void showBuilds();
    /// Shows the list of builds if it grew since the user saw it last.
    void showNewBuilds();
    void translatePlatformDialogs();

    const QString version_;
    QTranslator platformTexts_;
    Commands commands_{*this};
    QMenu* mnu_file_ = nullptr;
    QMenu* mnu_tools_ = nullptr;
    QMenu* mnu_tools_language_ = nullptr;
    QMenu* mnuWindow_ = nullptr;
    QMenu* mnu_help_ = nullptr;
    QActionGroup* languages_ = nullptr;
    QToolBar* CoolBar1_ = nullptr;
    AdvanceText* cmbmeasureunits_ = nullptr;
    AdvanceText* cmbGroupBy_ = nullptr;
    DropList* dropList_ = nullptr;
    TabBand* tabBand_ = nullptr;
    TabStrip* TabStrip_ = nullptr;
    WorkArea* area_ = nullptr;
    FormFocus* formFocus_ = nullptr;
    QLabel* subject_ = nullptr;
    QWidget* separator_ = nullptr;
    QLabel* counts_ = nullptr;
    int formNumber_ = 0;
    int wheel_ = 0;
};

}  // namespace marvello
