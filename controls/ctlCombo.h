#pragma once

#include <QFrame>
#include <QString>
#include <functional>

#include "controls/RowDetail.h"

class QListWidgetItem;

namespace marvello {

class ApplyRow;
class ChoiceList;

/// The drop list behind every selector: a floating list of "key|description" pairs, with check boxes when
/// several keys may be chosen, and a row below them that takes what is checked. Choice is emitted before
/// Closed; Escape and a click elsewhere raise Closed alone, and nothing is chosen.
class ctlCombo : public QFrame {
    Q_OBJECT
    Q_PROPERTY(int RowHeight READ RowHeight)
    Q_PROPERTY(int ListCount READ ListCount)

  public:
    explicit ctlCombo(QWidget* parent = nullptr);

    /// Fills the list. `keys` are the chosen keys joined by ";". With `inert` a click chooses nothing by
    /// itself: only Enter and Tab do. With `checkBoxes` rows are checked and the row "*" excludes all others.
    void Populate(const QString& list, const QString& keys, bool inert, bool checkBoxes);

    /// Gives the rows what comes after their names, by their keys; the row "*" has none.
    void setDetails(const std::function<RowDetail(const QString& key)>& detailOf);

    /// Names the list for a screen reader.
    void SetCaption(const QString& caption);

    int RowHeight() const;
    int ListCount() const;
    /// The preferred height for the number of rows.
    int preferredHeight() const;

    /// Lets nothing be chosen where no row is checked; otherwise that chooses all.
    void setNoneAllowed(bool isAllowed) { noneAllowed_ = isAllowed; }
    /// The text of the row that takes what is checked.
    void setApplyText(const QString& text);
    /// Goes to the row that is meant by what was typed.
    void search(const QString& typed);

    /// Shows the list under `box`, a rectangle in global coordinates, or above it where the screen ends.
    void openUnder(const QRect& box);

  signals:
    void Choice(const QString& key, const QString& text);
    void Closed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void clicked(QListWidgetItem* item);
    void flip(QListWidgetItem* item);
    void choose();
    void chooseChecked();

    bool hasApplyRow() const;
    void layOut();

    ChoiceList* list_;
    ApplyRow* apply_;
    QWidget* picresize_;
    bool inert_ = false;
    bool checkBoxes_ = false;
    bool noneAllowed_ = false;
};

}  // namespace marvello
