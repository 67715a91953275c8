#pragma once

#include <cstdint>
#include <vector>

/// What the system says of the memory of processes, in bytes; 0 when it says nothing.
namespace bench {

/// Of this process, what belongs to it alone.
double ownMemory();

/// All that a process has in memory, and the part of it that belongs to it alone.
double residentMemory(std::int64_t process);
double privateMemory(std::int64_t process);

std::vector<std::int64_t> childrenOf(std::int64_t process);

}  // namespace bench
