#include "Pairs.h"

#include <algorithm>
#include <ctime>
#include <fstream>
#include <vector>

namespace dialwright {

namespace {

/// The processor's time, in the system's calls too: on a memory disk there is nothing to wait for
/// but other programs, which would count against whatever takes longer.
double Microseconds(const std::function<void()>& work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) * 1e-3;
  };
  const double start = now();
  work();
  return now() - start;
}

/// The value that stands at a share of the sorted values: 0.5 is the median.
double Quantile(std::vector<double> values, double share) {
  const auto place = static_cast<long>(static_cast<double>(values.size() - 1) * share);
  std::ranges::nth_element(values, values.begin() + place);
  return values[static_cast<std::size_t>(place)];
}

}  // namespace

std::string ReadPlainly(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  std::string bytes(static_cast<std::size_t>(file.tellg()), '\0');
  file.seekg(0);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

void Pair(benchmark::State& state, const std::function<void()>& prepare,
          const std::function<void()>& plain, const std::function<void()>& ours) {
  std::vector<double> plainTimes;
  std::vector<double> ourTimes;
  std::vector<double> ratios;
  while (state.KeepRunning()) {
    prepare();
    plainTimes.push_back(Microseconds(plain));
    ourTimes.push_back(Microseconds(ours));
    ratios.push_back(ourTimes.back() / plainTimes.back());
    state.SetIterationTime(ourTimes.back() * 1e-6);
  }
  state.counters["plain_us"] = Quantile(plainTimes, 0.5);
  state.counters["ours_us"] = Quantile(ourTimes, 0.5);
  state.counters["ratio"] = Quantile(ratios, 0.5);
  state.counters["low"] = Quantile(ratios, 0.25);
  state.counters["high"] = Quantile(ratios, 0.75);
}

}  // namespace dialwright
