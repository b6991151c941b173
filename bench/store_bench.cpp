// Reading a project and every key in it: ours, the least that anybody must do, and other libraries.

#include <chrono>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include <QSettings>
#include <benchmark/benchmark.h>
#define SI_NO_CONVERSION  // bytes unchanged, as we read them
#include <SimpleIni.h>
#include <glib.h>

#include "hotel_text.h"
#include "platform/posix_file_system.h"
#include "store/ini_text.h"
#include "tests/floors.h"

namespace tarvok::bench {
namespace {

constexpr int kFull = 198'000;  // bytes of a project with every row in use
constexpr int kHotel = 36'734;

/** The file, and the keys to read. */
struct Reading {
  explicit Reading(int size) : file(TextOfSize(static_cast<std::size_t>(size))) {
    keys = AllKeys(TextOfSize(static_cast<std::size_t>(size)));
  }
  ScratchFile file;
  std::vector<std::pair<std::string, std::string>> keys;
};

int SizeOf(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

/** The lower bound: the file is read, and each byte is looked at once. */
void ReadScan(benchmark::State& state) {
  const Reading reading(SizeOf(state));
  for (auto _ : state) {
    const int fd = ::open(reading.file.path().c_str(), O_RDONLY);
    std::string bytes(static_cast<std::size_t>(SizeOf(state)) + 4096, '\0');
    const ssize_t got = ::read(fd, bytes.data(), bytes.size());
    ::close(fd);
    int lines = 0;
    for (ssize_t i = 0; i < got; ++i) lines += bytes[static_cast<std::size_t>(i)] == '\n' ? 1 : 0;
    benchmark::DoNotOptimize(lines);
  }
}

void ReadOurs(benchmark::State& state) {
  const Reading reading(SizeOf(state));
  PosixFileSystem files;
  std::size_t total = 0;
  for (auto _ : state) {
    Result<std::string> bytes = files.Read(reading.file.path());
    if (!bytes.ok()) return state.SkipWithError("no file");
    const IniText text(std::move(bytes).value());
    for (const auto& [section, key] : reading.keys) total += text.Get(section, key).size();
  }
  benchmark::DoNotOptimize(total);
}

void ReadGKeyFile(benchmark::State& state) {
  const Reading reading(SizeOf(state));
  for (auto _ : state) {
    GKeyFile* file = g_key_file_new();
    if (!g_key_file_load_from_file(file, reading.file.path().c_str(), G_KEY_FILE_NONE, nullptr)) {
      g_key_file_free(file);
      return state.SkipWithError("refused the file");
    }
    for (const auto& [section, key] : reading.keys) {
      gchar* value = g_key_file_get_value(file, section.c_str(), key.c_str(), nullptr);
      benchmark::DoNotOptimize(value);
      g_free(value);
    }
    g_key_file_free(file);
  }
}

void ReadSimpleIni(benchmark::State& state) {
  const Reading reading(SizeOf(state));
  for (auto _ : state) {
    CSimpleIniA ini;
    if (ini.LoadFile(reading.file.path().c_str()) < 0) return state.SkipWithError("refused the file");
    for (const auto& [section, key] : reading.keys) {
      benchmark::DoNotOptimize(ini.GetValue(section.c_str(), key.c_str()));
    }
  }
}

void ReadQSettings(benchmark::State& state) {
  const Reading reading(SizeOf(state));
  std::vector<QString> names;
  for (const auto& [section, key] : reading.keys)
    names.push_back(QString::fromStdString(section + '/' + key));
  for (auto _ : state) {
    // The library would serve a second copy of the same file from its own cache.
    const ScratchFile fresh(TextOfSize(static_cast<std::size_t>(SizeOf(state))));
    const auto start = std::chrono::steady_clock::now();
    {
      const QSettings settings(QString::fromStdString(fresh.path()), QSettings::IniFormat);
      for (const QString& name : names) benchmark::DoNotOptimize(settings.value(name));
    }
    state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
}

BENCHMARK(ReadScan)
    ->Name("read/scan")
    ->Arg(kHotel)
    ->Arg(kFull)
    ->Arg(10 * kFull)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadOurs)
    ->Name("read/ours")
    ->Arg(kHotel)
    ->Arg(kFull)
    ->Arg(10 * kFull)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadGKeyFile)->Name("read/GKeyFile")->Arg(kFull)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadSimpleIni)->Name("read/SimpleIni")->Arg(kFull)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadQSettings)->Name("read/QSettings")->Arg(kFull)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarvok::bench
