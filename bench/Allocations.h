#pragma once

namespace marvello::bench {

/// How often the program has asked for memory. The file of it replaces operator new, in a bench alone.
long long allocations();

}  // namespace marvello::bench
