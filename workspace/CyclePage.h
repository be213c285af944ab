#pragma once

#include <QWidget>

#include "workspace/CycleDiagram.h"

class QGridLayout;
class QLabel;

namespace marvello {

class CycleKey;
class ResultsView;

/// The cycle of a compressor: its diagram, and next to it the table of its states, its figures and what the
/// lines are. A state chosen in one is chosen in the other.
class CyclePage : public QWidget {
    Q_OBJECT

  public:
    explicit CyclePage(QWidget* parent = nullptr);

    /// Shows nothing but a sentence, which may be blank.
    void clear(const QString& sentence = QString());
    void setCycle(const CycleDiagram::Content& content);
    /// Offers to print; printWanted() says that the user wants it.
    void setPrintable() { isPrintable_ = true; }

  signals:
    void printWanted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void fillTable();
    void fillFigures();
    void fillKey();
    void choose(std::size_t state);
    void copyTable() const;
    void exportPicture();
    void showMenu(const QPoint& place);
    /// The diagram keeps its least width; the side takes what it can use.
    void arrange();

    CycleDiagram::Content content_;
    bool isPrintable_ = false;
    QLabel* sentence_;
    CycleDiagram* diagram_;
    QWidget* between_;
    QWidget* side_;
    ResultsView* states_;
    QWidget* figures_;
    QGridLayout* figureCells_;
    CycleKey* key_;
};

}  // namespace marvello
