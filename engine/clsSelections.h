#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "catalogue/clsCompressor.h"
#include "catalogue/clsProjectConditions.h"

namespace marvello {

/// Runs a selection: reads the catalogue rows that match, makes a compressor of each and calculates it. Every
/// row stays in the results, in catalogue order, with what was found about it in its Messages.
class clsSelections {
  public:
    std::string Refrigerants;  ///< Last refrigerant given to Selection, trimmed.
    std::string Series;        ///< Last series, trimmed.
    std::string Models;        ///< Last model list, trimmed; unchanged when a blank one was given.
    int UnitMeasure = 0;       ///< Stored only.
    std::shared_ptr<const clsProjectConditions> ProjectConditions;

    /// Called after each compressor: percent done, and its position in the results.
    std::function<void(int Percent, int Index)> SelectionPercent;

    /// Runs a whole selection; the results replace those before. `Serie` is the catalogue's name, `Models` a
    /// list joined with ";" or "*" for all, `Market` 0 for no filter. Without `conditions` those of before
    /// serve. Throws DatabaseError, FluidLibraryError, what the loader throws, and std::invalid_argument for
    /// a catalogue that holds an entry twice; the results stay as far as they were built.
    void Selection(std::shared_ptr<const clsProjectConditions> conditions, const std::string& Serie,
                   const std::string& Models, const std::string& Refrigerants, std::uint8_t Market);

    /// Adds under the compressor's key. Throws std::invalid_argument for a key that is there.
    void add(std::shared_ptr<clsCompressor> compressor);

    /// The compressor at the cursor, at a position from 1, or of a key. Throws std::out_of_range.
    clsCompressor& Item() const { return Item(cursor_); }
    clsCompressor& Item(int position) const;
    clsCompressor& Item(std::string_view key) const;
    bool Exist(std::string_view key) const;

    int Count() const { return static_cast<int>(compressors_.size()); }
    void Clear();

    void MoveFirst() { cursor_ = 1; }
    void MoveLast() { cursor_ = Count(); }
    /// Without bounds. Throw ArithmeticFault on overflow.
    void MoveNext();
    void MovePrevious();
    bool EOC() const { return Count() == 0 || cursor_ > Count(); }
    bool BOC() const { return cursor_ < 1; }
    int AbsolutePosition() const { return cursor_; }

    /// True after a run that was stopped through AbortRequested.
    bool isAborted() const { return isAborted_; }
    /// Gives the user interface a turn. Kept: the flag that it sets is read by nothing, since
    /// AbortRequested() stops a run.
    void stopselection();

    auto begin() const { return compressors_.begin(); }
    auto end() const { return compressors_.end(); }

  private:
    void Abort();
    /// The compressors of the catalogue that a statement finds.
    struct Found {
        std::string sql;
        std::shared_ptr<const PreparedCatalogue> catalogue;
        std::vector<const PreparedCompressor*> compressors;
    };

    static std::string BuildSelectionSql(const std::string& serie, const std::string& models,
                                         const std::string& refrigerant, bool inverter, std::uint8_t market);
    void find(const std::string& sql);
    void loadCompressors();
    clsCompressor* withKey(std::string_view key) const;
    std::shared_ptr<clsCompressor> freeCompressor(std::size_t position);
    void CalculateCompressors();
    void CalculateCompressor(clsCompressor& compressor);

    int cursor_ = 0;
    bool isAborted_ = false;
    bool stopFlag_ = false;
    Found found_;  ///< Of the last run: the same again asks nothing of the file.
    std::vector<std::shared_ptr<clsCompressor>> compressors_;
    std::vector<std::shared_ptr<clsCompressor>> former_;  ///< Results of before, to be used again.
};

}  // namespace marvello
