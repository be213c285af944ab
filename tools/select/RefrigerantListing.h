#pragma once

#include <string>

namespace marvello::select {

/// Returns a table of the refrigerants that the open catalogue has compressors for, on an inverter or at
/// mains frequency, with their facts in metric units; "-" stands for what is not known. Throws DatabaseError.
std::string refrigerantListing(bool inverter);

}  // namespace marvello::select
