// Every section of the newest version to its image and back.

#include <vector>

#include <benchmark/benchmark.h>

#include "counted_news.h"
#include "hotel_text.h"
#include "sections/registry.h"

namespace tarvok::bench {
namespace {

using Images = std::vector<std::pair<const Layout*, std::vector<std::uint8_t>>>;

/** Encodes what a send carries; the bytes of all images, and how many they are. */
std::size_t EncodeAll(const IniText& project, int* images = nullptr) {
  std::size_t total = 0;
  for (const Section* section : SendPlan(kHighestVersion)) {
    const Layout* layout = section->LayoutAt(kHighestVersion, Direction::kSend);
    if (layout == nullptr || layout->encode == nullptr) continue;
    ImageWriter image(layout->size);
    layout->encode(project, image);
    if (!image.ok()) return 0;
    total += image.bytes().size();
    if (images != nullptr) ++*images;
  }
  return total;
}

/** What a load brings: the images that the project makes, with the layouts that read them. */
Images LoadedImages(const IniText& project) {
  Images images;
  for (const Section* section : ReadPlan(kHighestVersion)) {
    const Layout* sent = section->LayoutAt(kHighestVersion, Direction::kSend);
    const Layout* loaded = section->LayoutAt(kHighestVersion, Direction::kLoad);
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
  const std::int64_t before = NewsSoFar();
  if (work() == 0) return state.SkipWithError("a section does not encode");
  state.counters["news"] = static_cast<double>(NewsSoFar() - before);
  for (auto _ : state) benchmark::DoNotOptimize(work());
}

/** With the rows of the hotel, or with what its images decode to: then every row of every table is in use. */
std::string ProjectOf(const benchmark::State& state) {
  if (state.range(0) == 0) return HotelText();
  const IniText hotel(HotelText());
  IniEdit full(hotel);
  for (const auto& [layout, bytes] : LoadedImages(hotel)) layout->decode(ImageReader(bytes), full);
  return full.Bytes();
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

/** The floor: bytes of that number are laid out and summed up. */
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
BENCHMARK(Touch)->Name("code/touch")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarvok::bench
