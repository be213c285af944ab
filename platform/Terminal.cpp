#include "platform/Terminal.h"

#include <unistd.h>

namespace marvello {

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

}  // namespace marvello
