#include "exchange/exchange_store.h"

#include <gmock/gmock.h>

#include "exchange/blank_images.h"
#include "sections/registry.h"
#include "tests/exchange/practice_bench.h"
#include "tests/floors.h"
#include "tests/store/memory_files.h"

namespace tarvok::test {
namespace {

struct Stored {
  explicit Stored(MemoryFiles& files, int version = 110)
      : memory(version), store(events, files, "box", memory, [this](std::string_view line) {
          complaints.emplace_back(line);
        }) {}

  VirtualEvents events;
  ExchangeMemory memory;
  std::vector<std::string> complaints;
  ExchangeStore store;
};

TEST(ExchangeStore, WritesEachPartAndReadsItBack) {
  MemoryFiles files;
  {
    Stored first(files);
    ASSERT_TRUE(first.store.Load().ok());
    first.memory.SetSection(9, Pattern(100));
    first.memory.SetSection(30, Hex("1234FF"));
    first.memory.SetMiniBar(511, Pattern(32));
    first.memory.SetSector(12, 0, Pattern(512));
    first.memory.SetSector(12, 1, Pattern(5));
    first.memory.set_clock(Hex("123400221126"));
    first.memory.set_mode(ExchangeMode::kBilling);
    EXPECT_THAT(files.files, IsEmpty());
    first.events.Run(150);  // without a proper end of the program
    EXPECT_EQ(files.Bytes("box/09.bin").size(), 100U);
    EXPECT_EQ(files.Bytes("box/billing/12.bin").size(), 517U);
    EXPECT_EQ(files.Bytes("box/minibar.bin").size(), 16384U);
    EXPECT_EQ(files.Bytes("box/mode"), "2\n");
    EXPECT_EQ(files.Bytes("box/clock"), "123400221126\n");
    EXPECT_EQ(files.Bytes("box/passwords"), "2 1234FF\n");
    EXPECT_EQ(files.files.size(), 6U);
  }
  Stored second(files);
  ASSERT_TRUE(second.store.Load().ok());
  EXPECT_EQ(second.memory.sections()[9], Pattern(100));
  EXPECT_EQ(HexText(second.memory.MiniBar(511)), HexText(Pattern(32)));
  EXPECT_EQ(second.memory.billing()[12].bytes.size(), 517U);
  EXPECT_EQ(second.memory.mode(), ExchangeMode::kBilling);
  EXPECT_EQ(HexText(*second.memory.passwords().Get(2)), "1234FF");
  EXPECT_EQ(second.memory.passwords().Get(1), std::nullopt);
}

TEST(ExchangeStore, RefusesFilesThatDoNotFit) {
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      {"box/09.bin", "short", "section 9 has 5 bytes, not 100"},
      {"box/22.bin", "x", "no section 22"},
      {"box/minibar.bin", "", "512 records"},
      {"box/mode", "3\n", "not a mode"},
      {"box/clock", "12345", "not a clock"},
      {"box/passwords", "4 1234FF\n", "not passwords"},
      {"box/passwords", "1 12FF\n", "not passwords"},
  };
  for (const auto& [path, bytes, words] : kCases) {
    MemoryFiles files;
    files.Put(path, bytes);
    Stored box(files);
    const Status loaded = box.store.Load();
    EXPECT_EQ(loaded.kind(), ErrorKind::kBadData) << path;
    EXPECT_THAT(loaded.message(), HasSubstr(std::string(path) + ": ")) << path;
    EXPECT_THAT(loaded.message(), HasSubstr(words));
  }
}

TEST(ExchangeStore, ReportsWhatCouldNotBeWritten) {
  MemoryFiles files;
  Stored box(files);
  files.fail_at = 1;
  files.fail_for_good = true;
  box.memory.SetSection(21, Hex("000000"));
  box.events.Run(150);
  EXPECT_THAT(box.complaints, ElementsAre(HasSubstr("21.bin")));
  EXPECT_FALSE(box.store.Flush().ok());
}

/** Keys that a decoder writes even for an empty image. */
bool SaysNothing(const IniText::Key& key) {
  const std::string value(key.value);
  if (key.name == "CCode") return value == "001";
  if (key.name == "Pbx") return value == "0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|0|0";
  return key.name == "Max" || key.name == "Now" || key.name == "Max_Group_Out" ||
         value.find_first_not_of("F|0.") == std::string::npos;
}

TEST(BlankImages, LoadAsAnEmptyProject) {
  for (int version = kLowestVersion; version <= kHighestVersion; ++version) {
    for (const Section* section : ReadPlan(version)) {
      const WireLayout* layout = section->LayoutAt(version, Direction::kLoad);
      // One of the modes is on by default, tenants may all call each other, and a link table always has a
      // route.
      const bool has_defaults = section->number == 2 || section->number == 12 || section->number == 37;
      if (layout == nullptr || layout->decode == nullptr || has_defaults) continue;
      SCOPED_TRACE(section->number * 1000 + version);
      const IniText nothing("");
      IniEdit project(nothing);
      const Bytes image = BlankImage(section->number, version);
      ASSERT_EQ(image.size(), static_cast<std::size_t>(layout->size));
      layout->decode(ImageReader(image), project);
      const IniText loaded(project.Bytes());
      for (const std::string_view name : loaded.Sections()) {
        for (const IniText::Key& key : loaded.Keys(name))
          EXPECT_TRUE(SaysNothing(key)) << name << ' ' << key.name << '=' << key.value;
      }
    }
  }
}

}  // namespace
}  // namespace tarvok::test
