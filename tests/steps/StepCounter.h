#pragma once

#include <cstdint>

/// How many basic blocks of the instrumented code have run since the program's start, and how many
/// bytes the calls for memory in it went through, by eights.
std::uint64_t StepsSoFar();
