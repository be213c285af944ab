#include "workspace/FormState.h"

#include <QStringList>
#include <cmath>

#include "workspace/UserSettings.h"

namespace marvello {

namespace {

// What lies beyond was never typed or dragged: the settings are damaged.
constexpr double largestValue = 1e6;
constexpr int widestColumn = 2000;  // logical pixels

QString groupOf(const QString& form) { return QStringLiteral("Forms/") + form; }

/// Entries "name=value": names may hold signs that a settings store keeps for itself.
template <class Value>
QStringList entriesOf(const QHash<QString, Value>& values) {
    QStringList entries;
    for (auto value = values.begin(); value != values.end(); ++value)
        entries += value.key() + u'=' + QVariant(value.value()).toString();
    entries.sort();
    return entries;
}

/// The names by which the leaders come to be the same again: a condensing pressure behind the temperature
/// that leads under it.
QStringList leadersOf(const CoupleLeaders& leaders) {
    QStringList names;
    for (const std::string& name :
         {leaders.evaporatingField(), leaders.condensing(), leaders.condensingField()})
        names += QString::fromStdString(name);
    return names;
}

/// Calls `take` with the name and the value of each entry of a setting.
template <class Take>
void forEntries(const QSettings& settings, const char* setting, Take take) {
    for (const QString& entry : settings.value(QLatin1String(setting)).toStringList())
        if (const qsizetype sign = entry.indexOf(u'='); sign > 0)
            take(entry.left(sign), QVariant(entry.mid(sign + 1)));
}

}  // namespace

void keepFormState(const QString& form, const FormState& state) {
    QSettings settings = userSettings();
    settings.beginGroup(groupOf(form));
    settings.setValue(QStringLiteral("MeasureUnit"), state.measureUnit);
    settings.setValue(QStringLiteral("Keys"), entriesOf(state.keys));
    settings.setValue(QStringLiteral("Values"), entriesOf(state.values));
    settings.setValue(QStringLiteral("ColumnWidths"), entriesOf(state.columnWidths));
    settings.setValue(QStringLiteral("Leaders"), leadersOf(state.leaders));
}

FormState keptFormState(const QString& form) {
    QSettings settings = userSettings();
    settings.beginGroup(groupOf(form));
    FormState state;
    state.measureUnit = settings.value(QStringLiteral("MeasureUnit")).toInt() == 1 ? 1 : 0;
    for (const QString& name : settings.value(QStringLiteral("Leaders")).toStringList())
        state.leaders.typed(name.toStdString());
    forEntries(settings, "Keys",
               [&](const QString& name, const QVariant& key) { state.keys[name] = key.toString(); });
    forEntries(settings, "Values", [&](const QString& name, const QVariant& text) {
        bool isNumber = false;
        const double value = text.toDouble(&isNumber);
        // Also false for what is not a number.
        if (isNumber && std::abs(value) <= largestValue) state.values[name] = value;
    });
    forEntries(settings, "ColumnWidths", [&](const QString& key, const QVariant& width) {
        if (const int pixels = width.toInt(); pixels > 0 && pixels <= widestColumn)
            state.columnWidths[key] = pixels;
    });
    return state;
}

}  // namespace marvello
