#include "controls/ChoiceList.h"

#include <QApplication>

#include "controls/TypedChoice.h"

namespace marvello {

void ChoiceList::keyboardSearch(const QString& text) {
    const bool goesOn = lastKey_.isValid() && lastKey_.elapsed() <= QApplication::keyboardInputInterval();
    typed_ = goesOn ? typed_ + text : text;
    lastKey_.start();
    QStringList rows;
    for (int row = 0; row < count(); ++row) rows += item(row)->text();
    if (const int row = typedChoice(rows, typed_, currentRow()); row >= 0) setCurrentRow(row);
}

}  // namespace marvello
