#pragma once

#include <benchmark/benchmark.h>

#include <filesystem>
#include <functional>
#include <string>

namespace dialwright {

/// A file's bytes by the standard library's stream.
std::string ReadPlainly(const std::filesystem::path& path);

/// Does the plain work and ours in turn in each iteration, so that both see the same machine, each
/// time after what prepares them and is not measured. The counters tell the medians of both in
/// microseconds of the processor, and the median and the quartiles of the pairs' ratios.
void Pair(benchmark::State& state, const std::function<void()>& prepare,
          const std::function<void()>& plain, const std::function<void()>& ours);

}  // namespace dialwright
