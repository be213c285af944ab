#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <limits>
#include <optional>

#include "workspace/FormState.h"
#include "workspace/InputsFold.h"
#include "workspace/ResultsPane.h"
#include "workspace/UserSettings.h"

namespace marvello {

/// A value that is kept for the user between starts. `Value` is int, QString, QByteArray, QStringList, or a
/// QHash of texts or numbers by names.
template <class Value>
struct Setting {
    QString key;
    Value fallback{};  ///< what it is while nothing sound is stored
    /// The permitted range of a number, or of each number of a QHash.
    double minimum = -std::numeric_limits<double>::infinity();
    double maximum = std::numeric_limits<double>::infinity();

    /// Returns the stored value; none if there is none, or if it is damaged or out of range. A QHash comes
    /// without its entries that are.
    std::optional<Value> stored(const QSettings& store = userSettings()) const;
    /// Returns the stored value if it is sound, else the default.
    Value value(const QSettings& store = userSettings()) const { return stored(store).value_or(fallback); }
    void keep(const Value& value) const;
    /// Keeps a value in a store that is open: several go into the file at once.
    void keep(const Value& value, QSettings& store) const;
};

/// The table of all settings. The language of the texts, "Parameters/Language", is the core's:
/// `clsApplication` in `data/` reads and stores it through the hooks.
namespace settings {

/// The version of the keys below; see migrateSettings().
inline const Setting<int> version{QStringLiteral("Settings/Version"), 0, 0, 1000};

inline const Setting<QByteArray> frame{QStringLiteral("Windows/Frame")};  ///< placeFrame() checks it
inline const Setting<int> panelWidth{QStringLiteral("Windows/PanelWidth"), InputsFold::minWidth,
                                     InputsFold::minWidth, InputsFold::maxWidth};
/// By the keys of the pages below the list.
inline const Setting<QHash<QString, int>> listHeights{
    QStringLiteral("Windows/ListHeights"), {}, ResultsPane::minListHeight, 10'000};
/// Of the next form: 0 metric, 1 imperial.
inline const Setting<int> measureUnit{QStringLiteral("Windows/cmbmeasureunits"), 0, 0, 1};
inline const Setting<int> groupBy{QStringLiteral("Windows/cmbGroupBy"), 0, 0, 1};
/// The bytes of the list of builds that the user saw last.
inline const Setting<int> buildsLength{QStringLiteral("Windows/BuildsLength"), 0, 0, 1e9};

/// With which sections the report goes on, by their keys.
inline const Setting<QStringList> reportSections{QStringLiteral("Report/Sections")};
/// Of the figures of a comparison, and over which temperature its curves go: 0 evaporating, 1 condensing.
inline const Setting<int> comparisonWidth{QStringLiteral("Comparison/Width"), 780, 300, 4000};
inline const Setting<int> comparisonAxis{QStringLiteral("Comparison/Axis"), 0, 0, 1};
/// Of the inputs of a year, and of the figures above its charts. Its inputs: numbers, choices and texts by
/// their names, and the bins of a profile of the user's.
inline const Setting<int> yearWidth{QStringLiteral("Year/Width"), InputsFold::minWidth, InputsFold::minWidth,
                                    InputsFold::maxWidth};
inline const Setting<int> yearHeight{QStringLiteral("Year/Height"), 318, 100, 4000};
inline const Setting<QHash<QString, double>> yearNumbers{QStringLiteral("Year/Numbers"), {}, -1e6, 1e6};
inline const Setting<QHash<QString, QString>> yearTexts{QStringLiteral("Year/Texts")};
inline const Setting<QString> yearBins{QStringLiteral("Year/Bins")};
inline const Setting<QString> exportFolder{QStringLiteral("Export/Folder")};
inline const Setting<QString> reportFolder{QStringLiteral("Reports/Folder")};

/// The state in which the last form of a kind was left, under its object name. See FormState.
struct OfForm {
    explicit OfForm(const QString& form) : group(QStringLiteral("Forms/") + form + u'/') {}

    QString group;
    Setting<int> measureUnit{group + QStringLiteral("MeasureUnit"), 0, 0, 1};
    Setting<QStringList> leaders{group + QStringLiteral("Leaders")};
    Setting<QHash<QString, QString>> keys{group + QStringLiteral("Keys")};
    Setting<QHash<QString, double>> values{group + QStringLiteral("Values"), {}, -1e6, 1e6};
    Setting<QHash<QString, int>> columnWidths{group + QStringLiteral("ColumnWidths"), {}, 1, 2000};
    Setting<QStringList> switchedColumns{group + QStringLiteral("SwitchedColumns")};
    Setting<QStringList> filters{group + QStringLiteral("Filters")};
    Setting<QString> mapQuantity{group + QStringLiteral("MapQuantity")};
};

}  // namespace settings

/// Brings what an earlier version of the program stored to the keys of the table, once. Settings of a later
/// version stay as they are.
void migrateSettings();

/// Returns the folder in which a dialog for files begins: the stored one, else that of the user's documents,
/// else the user's own; the first of them that exists.
QString keptFolder(const Setting<QString>& folder);

/// Keeps the state of a form under its object name.
void keepFormState(const QString& form, const FormState& state);
/// Returns the kept state of a form; empty if there is none.
FormState keptFormState(const QString& form);

}  // namespace marvello
