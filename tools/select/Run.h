#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "engine/Advice.h"
#include "engine/clsSelections.h"
#include "tools/select/Request.h"

namespace marvello::select {

/// The catalogue holds nothing of what a request names; `what()` is one sentence.
class NothingMatches : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A request that was carried out, with its results.
struct Run {
    Request request;
    std::shared_ptr<const clsSelections> selection;
    std::vector<std::string> remarks;                ///< What the run had to say in message boxes, each once.
    std::vector<std::vector<MessageAdvice>> advice;  ///< By compressor, if it was asked for.
};

/// Opens the catalogue of the application folder and reads the texts of a language. Throws DatabaseError, and
/// BadRequest for a language that it does not have.
void openCatalogue(const std::string& language);

/// Runs a request on the engine, its names in any case of letters. Throws BadRequest, NothingMatches,
/// DatabaseError, FluidLibraryError, and std::runtime_error with the fluid library's sentence if it cannot
/// set the refrigerant up.
Run carryOut(Request request);

/// Returns the one compressor that a request names, and spells its names as the catalogue does. Throws
/// BadRequest if it names none or several, and NothingMatches for names that the catalogue does not have.
const PreparedCompressor& oneCompressor(Request& request, const PreparedCatalogue& catalogue);

/// Throws NothingMatches for a refrigerant or a series, in any case of letters, that the catalogue does not
/// have.
void checkNames(const std::vector<std::string>& refrigerants, const std::vector<std::string>& series);

/// The refrigerants, series and models of the catalogue that run at fixed speed, or on an inverter; one
/// series a line.
std::string catalogueListing(bool inverter);

}  // namespace marvello::select
