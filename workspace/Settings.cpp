#include "workspace/Settings.h"

#include <QDir>
#include <QStandardPaths>
#include <QVariant>
#include <string>
#include <type_traits>
#include <utility>

#include "controls/CoreText.h"
#include "workspace/CompressorPages.h"

namespace marvello {

namespace {

template <class Value>
struct EntryOf : std::false_type {};
template <class Value>
struct EntryOf<QHash<QString, Value>> : std::true_type {
    using Type = Value;
};

template <class Value>
std::optional<Value> soundValue(const QVariant& stored, double minimum, double maximum) {
    if constexpr (EntryOf<Value>::value) {
        // Entries "name=value": names may hold signs that a settings store keeps for itself.
        Value values;
        for (const QString& entry : stored.toStringList())
            if (const qsizetype sign = entry.indexOf(u'='); sign > 0)
                if (const auto value =
                        soundValue<typename EntryOf<Value>::Type>(entry.mid(sign + 1), minimum, maximum))
                    values[entry.left(sign)] = *value;
        return values;
    } else if constexpr (std::is_arithmetic_v<Value>) {
        bool isNumber = false;
        const double number = stored.toDouble(&isNumber);
        // Also false for what is not a number.
        if (!isNumber || !(number >= minimum && number <= maximum)) return std::nullopt;
        return static_cast<Value>(number);
    } else {
        return stored.value<Value>();
    }
}

template <class Value>
QVariant storable(const Value& value) {
    if constexpr (EntryOf<Value>::value) {
        QStringList entries;
        for (auto entry = value.begin(); entry != value.end(); ++entry)
            entries += entry.key() + u'=' + QVariant(entry.value()).toString();
        entries.sort();
        return entries;
    } else {
        return value;
    }
}

/// The first versions stored two flags for the temperatures that lead, and nothing of pressures.
void nameLeaders(QSettings& store) {
    constexpr std::pair<const char*, const char*> flags[] = {{"MidLeadsEvaporation", "tem"},
                                                             {"MidLeadsCondensation", "tcm"}};
    store.beginGroup(QStringLiteral("Forms"));
    for (const QString& form : store.childGroups()) {
        QStringList leaders;
        for (const auto& [flag, leader] : flags) {
            const QString key = form + u'/' + QLatin1String(flag);
            if (store.value(key).toBool()) leaders += QLatin1String(leader);
            store.remove(key);
        }
        const QString key = form + QStringLiteral("/Leaders");
        if (!leaders.isEmpty() && !store.contains(key)) store.setValue(key, leaders);
    }
    store.endGroup();
}

/// The first versions had one height of the list; it is that of the pages which then had it by themselves.
void spreadListHeight(QSettings& store) {
    const Setting<int> height{QStringLiteral("Windows/ListHeight"), 0, ResultsPane::minListHeight, 10'000};
    QHash<QString, int> heights;
    if (height.value(store) > 0)
        for (const CompressorPages::Page& page : CompressorPages::all())
            if (!page.needsHeight) heights[QLatin1String(page.key)] = height.value(store);
    if (!heights.isEmpty() && !store.contains(settings::listHeights.key))
        settings::listHeights.keep(heights, store);
    store.remove(height.key);
}

/// The rating tables were the only section that a report could have.
void nameReportSections(QSettings& store) {
    const QString key = QStringLiteral("Report/RatingTables");
    if (store.value(key).toInt() == 1 && !store.contains(settings::reportSections.key))
        settings::reportSections.keep({QStringLiteral("rating")}, store);
    store.remove(key);
}

}  // namespace

template <class Value>
std::optional<Value> Setting<Value>::stored(const QSettings& store) const {
    const QVariant found = store.value(key);
    return found.isValid() ? soundValue<Value>(found, minimum, maximum) : std::nullopt;
}

template <class Value>
void Setting<Value>::keep(const Value& value) const {
    QSettings store = userSettings();
    keep(value, store);
}

template <class Value>
void Setting<Value>::keep(const Value& value, QSettings& store) const {
    store.setValue(key, storable(value));
}

template struct Setting<int>;
template struct Setting<QString>;
template struct Setting<QByteArray>;
template struct Setting<QStringList>;
template struct Setting<QHash<QString, QString>>;
template struct Setting<QHash<QString, int>>;
template struct Setting<QHash<QString, double>>;

void migrateSettings() {
    // A step for each version, in order; the last one is the version of the table.
    constexpr void (*steps[])(QSettings&) = {nameLeaders, spreadListHeight, nameReportSections};
    constexpr int current = std::size(steps);
    QSettings store = userSettings();
    const int version = settings::version.value(store);
    // A damaged file stays for the message that says so.
    if (store.status() != QSettings::NoError || version >= current) return;
    for (int step = version; step < current; ++step) steps[step](store);
    settings::version.keep(current, store);
}

QString keptFolder(const Setting<QString>& folder) {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& candidate : {folder.value(), documents})
        if (!candidate.isEmpty() && QDir(candidate).exists()) return candidate;
    return QDir::homePath();
}

void keepFormState(const QString& form, const FormState& state) {
    const settings::OfForm of(form);
    QHash<QString, QString> keys;
    for (const auto& [name, key] : state.inputs.keys) keys[fromCore(name)] = fromCore(key);
    QHash<QString, double> values;
    for (const auto& [name, value] : state.inputs.values) values[fromCore(name)] = value;
    QSettings store = userSettings();
    of.measureUnit.keep(static_cast<int>(state.inputs.units), store);
    QStringList leaders;
    for (const std::string& name : state.inputs.leaders.names()) leaders += fromCore(name);
    of.leaders.keep(leaders, store);
    of.keys.keep(keys, store);
    of.values.keep(values, store);
    of.columnWidths.keep(state.columnWidths, store);
    of.switchedColumns.keep(state.switchedColumns, store);
    of.filters.keep(state.filters, store);
    of.mapQuantity.keep(state.mapQuantity, store);
}

FormState keptFormState(const QString& form) {
    const settings::OfForm of(form);
    const QSettings store = userSettings();
    FormState state;
    state.inputs.units = static_cast<UnitSystem>(of.measureUnit.value(store));
    std::vector<std::string> leaders;
    for (const QString& name : of.leaders.value(store)) leaders.push_back(toCore(name));
    state.inputs.leaders = CoupleLeaders::named(leaders);
    const auto keys = of.keys.value(store);
    for (auto key = keys.begin(); key != keys.end(); ++key)
        state.inputs.keys[toCore(key.key())] = toCore(*key);
    const auto values = of.values.value(store);
    for (auto value = values.begin(); value != values.end(); ++value)
        state.inputs.values[toCore(value.key())] = *value;
    state.columnWidths = of.columnWidths.value(store);
    state.switchedColumns = of.switchedColumns.value(store);
    state.filters = of.filters.value(store);
    state.mapQuantity = of.mapQuantity.value(store);
    return state;
}

}  // namespace marvello
