#pragma once

#include <vector>

#include "controls/DialogFrame.h"
#include "results/FoundTable.h"

namespace marvello {

/// The compressors that a search cannot have, by reason: each reason with their number, and its compressors
/// when it is opened.
class RejectedCompressors : public DialogFrame {
    Q_OBJECT

  public:
    RejectedCompressors(const std::vector<RejectedGroup>& groups, QWidget* parent);
};

}  // namespace marvello
