#pragma once

#include <string>

#include "reports/pdf/clsPDFCreator.h"

namespace marvello {

/// Writes a document of two pages that has everything clsPDFCreator can draw. Four bitmaps are put into
/// `folder` on the way and stay there. Throws what the creator throws.
void writeShowcase(const std::string& fileName, const std::string& folder,
                   PdfSurroundings surroundings = PdfSurroundings::system());

}  // namespace marvello
