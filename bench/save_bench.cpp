// Saving 512 rows, and saving one key, each time to the disk, compared with the writes that durability itself
// requires.

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <functional>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "hotel_text.h"
#include "platform/posix_file_system.h"
#include "store/project_store.h"
#include "tests/floors.h"

namespace tarvok::bench {
namespace {

constexpr int kRows = 512;
constexpr int kHotel = 36'734;
constexpr int kFull = 198'000;
/** Longer than the time for which a file's time stamp proves nothing: no user saves faster. */
constexpr std::chrono::milliseconds kBetweenSaves(25);

/** Row `number`, different in each generation: a save that changes nothing writes nothing. */
std::string Row(int number, int generation) {
  return std::to_string(2000 + number) + "|Room " + std::to_string(number) + "|1|F|" +
         std::to_string(generation);
}

Status SaveRows(ProjectStore& store, const std::string& path, int generation) {
  return store.Update(path, [&](IniEdit& edit) {
    for (int row = 1; row <= kRows; ++row) {
      edit.Set("Bench", std::to_string(row), Row(row, generation));
    }
  });
}

/** Write, fsync, rename, fsync of the folder: the minimum for a durable save. */
bool WriteDurably(const std::string& path, const std::string& bytes) {
  const std::string beside = path + ".floor";
  const int file = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  bool good = file >= 0 && ::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
              ::fsync(file) == 0 && ::close(file) == 0 && ::rename(beside.c_str(), path.c_str()) == 0;
  const int folder = ::open(path.substr(0, path.rfind('/')).c_str(), O_RDONLY | O_DIRECTORY);
  good = good && ::fsync(folder) == 0;
  ::close(folder);
  return good;
}

/**
 * Both sides take turns in one benchmark, so that other disk activity affects both. `state.range(0)` is the
 * size of the project. The counters are medians in microseconds.
 */
template <typename Ours>
void AgainstFloor(benchmark::State& state, Ours ours,
                  const std::function<void(const std::string& path)>& look = {}) {
  ScratchFile mine(TextOfSize(static_cast<std::size_t>(state.range(0))));
  ScratchFile floor("");
  PosixFileSystem files;
  if (!ours(files, mine.path(), 0)) return state.SkipWithError("no save");
  std::vector<double> ours_us;
  std::vector<double> floor_us;
  const auto timed = [](auto work) {
    const auto start = std::chrono::steady_clock::now();
    const bool good = work();
    return good ? std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count()
                : 0.0;
  };
  int generation = 0;
  for (auto _ : state) {
    const Result<std::string> bytes = files.Read(mine.path());
    if (!bytes.ok()) return state.SkipWithError("no file");
    std::this_thread::sleep_for(kBetweenSaves);
    if (look) look(mine.path());
    floor_us.push_back(timed([&] { return WriteDurably(floor.path(), bytes.value()); }));
    ours_us.push_back(timed([&] { return ours(files, mine.path(), ++generation); }));
    if (floor_us.back() == 0.0 || ours_us.back() == 0.0) return state.SkipWithError("no save");
    state.SetIterationTime((floor_us.back() + ours_us.back()) / 1e6);
  }
  const auto median = [](std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
  };
  state.counters["ours_us"] = median(ours_us);
  state.counters["floor_us"] = median(floor_us);
}

/** Saves in a program that has the project open, as an editor does. */
void SaveRowsBench(benchmark::State& state) {
  PosixFileSystem kept;
  ProjectStore store(kept);
  AgainstFloor(
      state,
      [&](FileSystem&, const std::string& path, int generation) {
        return SaveRows(store, path, generation).ok();
      },
      [&](const std::string& path) { benchmark::DoNotOptimize(store.Snapshot(path)); });
}

/** With a new store each time: the file is opened, parsed, changed at one key, and saved. */
void OpenEditSave(benchmark::State& state) {
  AgainstFloor(state, [](FileSystem& files, const std::string& path, int generation) {
    ProjectStore store(files);
    return store.SetIniValue(path, "Port_Def", "001", std::to_string(generation)).ok();
  });
}

BENCHMARK(SaveRowsBench)->Name("save/512 rows")->Arg(kHotel)->Arg(kFull)->UseManualTime()->Iterations(60);
BENCHMARK(OpenEditSave)->Name("save/open, one key")->Arg(kHotel)->Arg(kFull)->UseManualTime()->Iterations(60);

}  // namespace
}  // namespace tarvok::bench
