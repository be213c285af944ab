#include "engine/clsSelections.h"

#include <limits>
#include <optional>
#include <stdexcept>

#include "catalogue/CatalogueLists.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "catalogue/SeriesTraits.h"
#include "data/Arithmetic.h"
#include "data/Hooks.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "engine/Calculator.h"
#include "engine/CompressorCalculation.h"
#include "thermo/clsRefprop.h"

namespace marvello {

namespace {

/// Kept: letter by letter, though the catalogue ignores case: a series in other letters is asked for at mains
/// frequency, where it has no models.
bool isInverterSeries(const std::string& serie) {
    const SeriesTraits& traits = seriesTraits(serie);
    return traits.drive == Drive::inverter && traits.name == serie;
}

int movedBy(int cursor, int step) {
    const long long moved = static_cast<long long>(cursor) + step;
    if (moved > std::numeric_limits<int>::max() || moved < std::numeric_limits<int>::min()) {
        throw ArithmeticFault("The cursor left the range of numbers.");
    }
    return static_cast<int>(moved);
}

}  // namespace

void clsSelections::Selection(std::shared_ptr<const clsProjectConditions> conditions,
                              const std::string& Serie, const std::string& models,
                              const std::string& refrigerants, std::uint8_t Market) {
    // First of all: the texts may be the very properties that are written below.
    const std::string sql = BuildSelectionSql(Serie, models, refrigerants, isInverterSeries(Serie), Market);
    followCatalogue();
    gDatabase().checkUndamaged();
    isAborted_ = false;
    Clear();
    stopFlag_ = false;
    Refrigerants = trimmed(refrigerants);
    Series = trimmed(Serie);
    if (!trimmed(models).empty()) Models = trimmed(models);
    if (conditions) ProjectConditions = std::move(conditions);
    if (!ProjectConditions) ProjectConditions = std::make_shared<clsProjectConditions>();

    loadCompressors(sql);
    if (Count() > 0) CalculateCompressors();
}

std::string clsSelections::BuildSelectionSql(const std::string& serie, const std::string& models,
                                             const std::string& refrigerant, bool inverter,
                                             std::uint8_t market) {
    return selectionSql({.onInverter = inverter,
                         .refrigerant = refrigerant,
                         .series = serie,
                         .models = models,
                         .market = market == 0 ? std::nullopt : std::optional<int>(market)});
}

void clsSelections::loadCompressors(const std::string& sql) {
    const std::shared_ptr<const clsProjectConditions> held = ProjectConditions;  // across the turns below
    const clsProjectConditions& conditions = *held;
    const auto catalogue = preparedCatalogue(gDatabase());
    for (RecordSet row = gDatabase().Execute(sql); !row.eof(); row.moveNext()) {
        giveTurn();
        if (AbortRequested()) {
            Abort();
            return;
        }
        auto compressor = std::make_shared<clsCompressor>();
        const PreparedCompressor* found =
            catalogue->find(row.text("fRefrigerantID"), row.text("fSerieID"), row.text("fModelID"));
        if (found != nullptr) found->load(*compressor, choiceOf(conditions));
        compressor->Motor.Voltage = roundedToInteger(conditions.MotorVoltage);
        add(std::move(compressor));
    }
}

void clsSelections::CalculateCompressors() {
    const int count = Count();
    for (int i = 1; i <= count; ++i) {
        if (AbortRequested()) {
            Abort();
            return;
        }
        // Shared, since a window event during the calculation may clear the results.
        const std::shared_ptr<clsCompressor> compressor = compressors_.at(static_cast<std::size_t>(i) - 1);
        CalculateCompressor(*compressor);
        if (SelectionPercent)
            SelectionPercent(roundedToInteger(checked(static_cast<double>(i) / Count()) * 100), i);
    }
}

void clsSelections::CalculateCompressor(clsCompressor& compressor) {
    const auto conditions = ProjectConditions;
    const auto refprop = SharedRefprop(compressor.Refrigerant);
    formTimeout timeout;
    timeout.Timeout = [] { giveTurn(); };
    CompressorCalculation(compressor, *refprop, *conditions, timeout).run();
}

void clsSelections::Abort() {
    Clear();
    AbortRequested() = false;
    isAborted_ = true;
}

void clsSelections::add(std::shared_ptr<clsCompressor> compressor) {
    if (!byKey_.emplace(lowered(compressor->Key()), compressor.get()).second) {
        throw std::invalid_argument("The catalogue holds the compressor " + compressor->Key() + " twice.");
    }
    compressors_.push_back(std::move(compressor));
}

void clsSelections::Clear() {
    byKey_.clear();
    compressors_.clear();
}

clsCompressor& clsSelections::Item(int position) const {
    if (position < 1 || position > Count()) {
        throw std::out_of_range("There is no compressor at position " + std::to_string(position) + ".");
    }
    return *compressors_[static_cast<std::size_t>(position) - 1];
}

clsCompressor& clsSelections::Item(std::string_view key) const {
    const auto found = byKey_.find(lowered(key));
    if (found == byKey_.end()) throw std::out_of_range("There is no compressor " + std::string(key) + ".");
    return *found->second;
}

bool clsSelections::Exist(std::string_view key) const { return byKey_.contains(lowered(key)); }

void clsSelections::MoveNext() { cursor_ = movedBy(cursor_, 1); }

void clsSelections::MovePrevious() { cursor_ = movedBy(cursor_, -1); }

void clsSelections::stopselection() {
    stopFlag_ = true;
    giveTurn();
}

}  // namespace marvello
