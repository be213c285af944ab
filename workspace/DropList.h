#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "controls/RowDetail.h"

namespace marvello {

class AdvanceText;
class ctlCombo;

/// The one drop list that serves all selectors of a window: opens under a field with its choices and hands
/// the choice back to it.
class DropList : public QObject {
    Q_OBJECT

  public:
    explicit DropList(QWidget* window);

    /// What comes after the name of a row, by its key.
    using Details = std::function<RowDetail(const QString& key)>;

    /// Lets the button of `field` open the list, with check boxes when several keys may be chosen, and with
    /// `details` where the rows have some.
    void serve(AdvanceText* field, bool checkBoxes = false, const Details& details = {});

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeCombo();
    void open(AdvanceText* field, bool checkBoxes, const Details& details);
    void take(const QString& key, const QString& text);
    void close();

    ctlCombo* combo_ = nullptr;  ///< made at its first opening
    QPointer<AdvanceText> field_;
    bool checkBoxes_ = false;
    QString typed_;  ///< what opened the list, if it was a letter
};

}  // namespace marvello
