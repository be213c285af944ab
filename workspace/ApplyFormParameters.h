#pragma once

#include <QString>
#include <map>

#include "data/ParameterSets.h"

class QObject;
class QWidget;

namespace marvello {

/// Applies the parameter set (type, typeKey, key) of the catalogue to the controls of `form`: each assignment
/// goes to the property of the control that it names, both without regard to case. Texts are converted to the
/// type of the property by the rules of US English. What does not fit is skipped without a word; only a
/// missing connection is reported.
void ApplyFormParameters(const QString& type, const QString& typeKey, const QString& key, QWidget& form);

/// One assignment. False when the control has no such property or the text does not convert.
bool assignProperty(QObject& control, const QString& property, const QString& value);
/// The properties that a set may assign, by their names in lower case.
std::map<QString, ValueKind> assignableProperties(const QObject& control);

}  // namespace marvello
