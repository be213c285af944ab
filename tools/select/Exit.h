#pragma once

#include <cstdio>
#include <string>

#include "platform/Interrupt.h"
#include "tools/select/Complaint.h"

namespace marvello::select {

enum ExitStatus {
    done = 0,
    nothingMatches = 1,
    refused = 2,
    someLinesBad = 3,
    resultsDiffer = 4,
    interrupted = Interrupt::status
};

/// Says a sentence on standard error and returns the status.
inline int complain(const std::string& sentence, ExitStatus status) {
    std::fputs(complaint(sentence).c_str(), stderr);
    return status;
}

}  // namespace marvello::select
