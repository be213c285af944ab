#pragma once

class QObject;

namespace marvello {

/// Lets screen readers see the program's own controls as what they are: a field with a list is a combo box
/// with its entries and no line edit, and a graph, a progress bar and a note have their roles. May be called
/// any number of times.
void installAccessibility();

/// Makes screen readers ask anew what a control is, after it became another kind of control.
void renewAccessibility(QObject* control);

}  // namespace marvello
