#pragma once

#include <QWidget>

namespace marvello {

/// A form of the work area, with a tab of its own: what the main window asks of each kind.
class Form : public QWidget {
    Q_OBJECT

  public:
    /// How a form is told from those of other kinds.
    struct Face {
        const char* icon;
        const char* textKey;
    };
    virtual Face face() const = 0;

    QString Key() const { return key_; }
    /// Also sets the window's title.
    void setKey(const QString& key);
    QString Description() const { return description_; }
    void setDescription(const QString& description);

    /// Says all texts in the user's language.
    virtual void Traduci() = 0;
    /// Shows the form in a system of units, 0 metric and 1 imperial. With `refresh` the results are listed
    /// anew.
    virtual void MeasureUnits(int unit, bool refresh) = 0;
    virtual int MeasureUnit() const = 0;
    /// Copies what is selected, or all of what has no selection.
    virtual void CopyToClipBoard() = 0;
    /// Asks for a file and writes the results.
    virtual void ExportCPS() = 0;
    /// Prints what the form is about, or shows it in its window.
    virtual void PrintReport(bool preview) = 0;
    /// Calculates anew, as F5 does.
    virtual void recalculate() = 0;
    void Quit();
    /// Turns of the mouse wheel over the field in use. False when the pointer is elsewhere.
    virtual bool WheelMoved(int) { return false; }
    /// Whether it has inputs next to its results, which can be hidden.
    virtual bool canCollapse() const { return false; }
    virtual bool isCollapsed() const { return false; }
    /// Hides the inputs, or shows them again.
    virtual void CloseFrame(bool) {}
    /// Keeps what the next form of this kind starts with.
    virtual void keep() const {}

    /// True with results that belong to the inputs.
    virtual bool hasResults() const = 0;
    virtual bool canCopy() const = 0;
    virtual bool canPrint() const = 0;
    /// What the form is about, in a few words.
    virtual QString subject() const = 0;
    /// What the results come to, for the status bar; asked with counts only.
    virtual QString counts() const = 0;
    /// Whether there is something to count; nothing found is something too.
    virtual bool hasCounts() const { return hasResults(); }

  signals:
    /// What the main window shows of the form has changed.
    void stateChanged();
    /// The user moved a splitter.
    void sizesChanged();
    /// Help was asked for where no field has any.
    void guideRequested();
    /// A file was written, or something else was done out of sight; `note` says what.
    void exported(const QString& note);

  protected:
    using QWidget::QWidget;
    /// Goes on to the next of the parts that can have the focus.
    void goRound(const QList<QWidget*>& parts);
    void closeEvent(QCloseEvent* event) override;

  private:
    QString key_;
    QString description_;
};

}  // namespace marvello
