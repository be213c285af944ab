#include "controls/SearchField.h"

#include <QKeyEvent>

#include "controls/Icons.h"

namespace marvello {

SearchField::SearchField(QWidget* parent) : QLineEdit(parent) {
    setClearButtonEnabled(true);
    addAction(icon(QStringLiteral("find")), LeadingPosition);
}

QSize SearchField::sizeHint() const { return {200, 28}; }

void SearchField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->modifiers().testFlag(Qt::ShiftModifier) ? previousWanted() : nextWanted();
    else if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        return QLineEdit::keyPressEvent(event);
}

}  // namespace marvello
