#pragma once

#include <QList>
#include <QTextCursor>
#include <QWidget>
#include <vector>

#include "catalogue/clsProjectConditions.h"
#include "results/CalculationSheet.h"

class QLabel;
class QTextBrowser;

namespace marvello {

class PageBar;
class SearchField;
class ctlBtn;
class clsCompressor;

/// The calculation of a compressor laid open, with a field to look for a symbol or a word.
class CalculationPage : public QWidget {
    Q_OBJECT

  public:
    explicit CalculationPage(QWidget* parent = nullptr);

    void translate();
    /// Empties the page.
    void clear();
    /// Shows how a compressor was calculated, scrolled as the sheet before.
    void showCompressor(const clsCompressor& compressor, const clsProjectConditions& conditions);

    /// Lets the user type what to look for.
    void focusSearch();

  signals:
    /// A file was written; the note says which.
    void exported(const QString& note);

  private:
    void makeBar();
    void search();
    /// Goes on by so many places, around the ends.
    void go(int places);
    void mark();
    void copy() const;
    void openExports();
    void write(bool isHtml);
    void print();

    PageBar* bar_;
    SearchField* field_;
    ctlBtn* copy_;
    ctlBtn* export_;
    ctlBtn* print_;
    QTextBrowser* sheet_;
    QString title_;
    std::vector<SheetSection> sections_;
    QList<QTextCursor> found_;
    int current_ = 0;   ///< of what was found
    int scrolled_ = 0;  ///< where the last sheet was left
};

}  // namespace marvello
