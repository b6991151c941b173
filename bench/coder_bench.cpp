// Encodes and decodes every section of the newest version, changes a project, and checks it.

#include <vector>

#include <benchmark/benchmark.h>

#include "counted_news.h"
#include "hotel_text.h"
#include "project/check.h"
#include "sections/registry.h"
#include "sections/rows.h"
#include "tests/floors.h"

namespace tarvok::bench {
namespace {

using Images = std::vector<std::pair<const WireLayout*, std::vector<std::uint8_t>>>;

/** Encodes what a send carries; returns the total size, and the number of images in `images`. */
std::size_t EncodeAll(const IniText& project, int* images = nullptr) {
  std::size_t total = 0;
  for (const Section* section : SendPlan(kHighestVersion)) {
    const WireLayout* layout = section->LayoutAt(kHighestVersion, Direction::kSend);
    if (layout == nullptr || layout->encode == nullptr) continue;
    ImageWriter image(layout->size);
    layout->encode(project, image);
    if (!image.ok()) return 0;
    total += image.bytes().size();
    if (images != nullptr) ++*images;
  }
  return total;
}

/** What a load receives: the images of the project, with the layouts that decode them. */
Images LoadedImages(const IniText& project) {
  Images images;
  for (const Section* section : ReadPlan(kHighestVersion)) {
    const WireLayout* sent = section->LayoutAt(kHighestVersion, Direction::kSend);
    const WireLayout* loaded = section->LayoutAt(kHighestVersion, Direction::kLoad);
    if (loaded == nullptr || loaded->decode == nullptr) continue;
    ImageWriter image(loaded->size);
    if (sent != nullptr && sent->encode != nullptr) sent->encode(project, image);
    images.emplace_back(loaded, image.bytes());
  }
  return images;
}

std::string DecodeAll(const Images& images) {
  const IniText nothing;
  IniEdit project(nothing);
  for (const auto& [layout, bytes] : images) layout->decode(ImageReader(bytes), project);
  return project.Bytes();
}

template <typename Work>
void Counted(benchmark::State& state, Work work) {
  const std::int64_t news = NewsSoFar();
  const std::int64_t bytes = BytesSoFar();
  if (work() == 0) return state.SkipWithError("a section does not encode");
  state.counters["news"] = static_cast<double>(NewsSoFar() - news);
  state.counters["bytes"] = static_cast<double>(BytesSoFar() - bytes);
  for (auto _ : state) benchmark::DoNotOptimize(work());
}

/** Fills every row of a table: the free ones with the values of the used ones, repeatedly. */
void FillTable(const IniText& hotel, const Table& table, IniEdit& full) {
  std::vector<std::string_view> used;
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    if (const std::string_view row = RowValue(hotel, table, number); !row.empty()) used.push_back(row);
  }
  if (used.empty() || table.members.pool > 0) return;  // a pool that all rows share may have no room for more
  std::size_t next = 0;
  for (int number = table.rows.first; number <= table.rows.last; ++number) {
    if (RowValue(hotel, table, number).empty()) StoreRow(full, table, number, used[next++ % used.size()]);
  }
  if (table.now == NowCounts::kRows) StoreRowCounts(full, table, table.rows.last);
}

/** The hotel, or the hotel with every row of every table in use. */
std::string ProjectOf(const benchmark::State& state) {
  const IniText hotel(HotelText());
  IniEdit project(hotel);
  if (state.range(0) == 1) {
    for (const Table* table : Tables()) FillTable(hotel, *table, project);
  }
  return project.Bytes();
}

void Encode(benchmark::State& state) {
  const IniText project(ProjectOf(state));
  Counted(state, [&] { return EncodeAll(project); });
  int images = 0;
  EncodeAll(project, &images);
  state.counters["pieces"] = images;
}

void Decode(benchmark::State& state) {
  const Images images = LoadedImages(IniText(ProjectOf(state)));
  Counted(state, [&] { return DecodeAll(images).size(); });
  state.counters["pieces"] = static_cast<double>(AllKeys(DecodeAll(images)).size());
}

/** Writes new rows as a load does, but without decoding. */
void Change(benchmark::State& state) {
  const IniText nothing;
  std::vector<std::string> keys;
  for (std::int64_t row = 0; row < state.range(0); ++row) keys.push_back(std::to_string(row));
  Counted(state, [&] {
    IniEdit project(nothing);
    for (const std::string& key : keys) project.Set("Bench", key, "2001|Room 1|1|F|F|F|F|F");
    return project.Bytes().size();
  });
  state.counters["pieces"] = static_cast<double>(state.range(0));
}

/** The check that the overview runs after a project is opened. */
void Check(benchmark::State& state) {
  const IniText project(ProjectOf(state));
  Counted(state, [&] { return CheckProject(project).size() + 1; });
  state.counters["pieces"] = static_cast<double>(AllKeys(project.bytes()).size());
}

/** The lower bound: as many bytes are written and summed up. */
void Touch(benchmark::State& state) {
  const std::size_t size = EncodeAll(IniText(HotelText()));
  for (auto _ : state) {
    std::vector<std::uint8_t> bytes(size, 1);
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) sum += byte;
    benchmark::DoNotOptimize(sum);
  }
}

BENCHMARK(Encode)->Name("code/encode")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(Decode)->Name("code/decode")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(Change)->Name("code/change")->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Check)->Name("code/check")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(Touch)->Name("code/touch")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarvok::bench
