#include "engine/clsSelections.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
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

std::invalid_argument twice(const std::string& key) {
    return std::invalid_argument("The catalogue holds the compressor " + key + " twice.");
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
    auto former = std::move(compressors_);
    Clear();
    former_ = std::move(former);
    stopFlag_ = false;
    Refrigerants = trimmed(refrigerants);
    Series = trimmed(Serie);
    if (!trimmed(models).empty()) Models = trimmed(models);
    if (conditions) ProjectConditions = std::move(conditions);
    if (!ProjectConditions) ProjectConditions = std::make_shared<clsProjectConditions>();

    find(sql);
    loadCompressors();
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

void clsSelections::find(const std::string& sql) {
    auto catalogue = preparedCatalogue(gDatabase());
    if (found_.catalogue == catalogue && found_.sql == sql) return;
    Found found{sql, std::move(catalogue), {}};
    std::set<std::string> keys;
    for (RecordSet row = gDatabase().Execute(sql); !row.eof(); row.moveNext()) {
        const PreparedCompressor* compressor =
            found.catalogue->find(row.text("fRefrigerantID"), row.text("fSerieID"), row.text("fModelID"));
        if (compressor == nullptr) continue;
        const std::string key = clsCompressor::keyOf(*compressor);
        if (!keys.insert(lowered(key)).second) throw twice(key);
        found.compressors.push_back(compressor);
    }
    found_ = std::move(found);
}

void clsSelections::loadCompressors() {
    const std::shared_ptr<const clsProjectConditions> held = ProjectConditions;  // across the turns below
    const Found found = found_;
    for (std::size_t i = 0; i < found.compressors.size(); ++i) {
        giveTurn();
        if (AbortRequested()) {
            Abort();
            return;
        }
        auto compressor = freeCompressor(i);
        found.compressors[i]->load(*compressor, choiceOf(*held));
        compressor->Motor.Voltage = roundedToInteger(held->MotorVoltage);
        compressors_.push_back(std::move(compressor));
    }
    former_.clear();
}

/// The result of before at the position, unless somebody holds it, or a new one.
std::shared_ptr<clsCompressor> clsSelections::freeCompressor(std::size_t position) {
    const bool isFree = position < former_.size() && former_[position].use_count() == 1;
    return isFree ? std::move(former_[position]) : std::make_shared<clsCompressor>();
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
    CompressorCalculation<Untraced>(compressor, *refprop, *conditions, timeout).run();
}

void clsSelections::Abort() {
    Clear();
    AbortRequested() = false;
    isAborted_ = true;
}

void clsSelections::add(std::shared_ptr<clsCompressor> compressor) {
    if (Exist(compressor->Key())) throw twice(compressor->Key());
    compressors_.push_back(std::move(compressor));
}

void clsSelections::Clear() {
    compressors_.clear();
    former_.clear();
}

clsCompressor& clsSelections::Item(int position) const {
    if (position < 1 || position > Count()) {
        throw std::out_of_range("There is no compressor at position " + std::to_string(position) + ".");
    }
    return *compressors_[static_cast<std::size_t>(position) - 1];
}

clsCompressor* clsSelections::withKey(std::string_view key) const {
    const auto found = std::ranges::find_if(
        compressors_, [&](const auto& each) { return equalIgnoringCase(each->Key(), key); });
    return found == compressors_.end() ? nullptr : found->get();
}

clsCompressor& clsSelections::Item(std::string_view key) const {
    if (clsCompressor* found = withKey(key)) return *found;
    throw std::out_of_range("There is no compressor " + std::string(key) + ".");
}

bool clsSelections::Exist(std::string_view key) const { return withKey(key) != nullptr; }

void clsSelections::MoveNext() { cursor_ = movedBy(cursor_, 1); }

void clsSelections::MovePrevious() { cursor_ = movedBy(cursor_, -1); }

void clsSelections::stopselection() {
    stopFlag_ = true;
    giveTurn();
}

}  // namespace marvello
