// Runs every input of the corpus, the starting points and all inputs that ever failed, through its target.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/floors.h"

using FuzzTarget = int(const std::uint8_t* data, std::size_t size);
// The function of each target, named after the target by the build.
extern "C" {
FuzzTarget command_line_fuzz;
FuzzTarget exchange_command_line_fuzz;
FuzzTarget field_list_fuzz;
FuzzTarget form_script_fuzz;
FuzzTarget link_bytes_fuzz;
FuzzTarget messages_fuzz;
FuzzTarget modem_text_fuzz;
FuzzTarget practice_exchange_fuzz;
FuzzTarget project_file_fuzz;
FuzzTarget section_image_fuzz;
FuzzTarget section_text_fuzz;
FuzzTarget server_packets_fuzz;
FuzzTarget settings_file_fuzz;
FuzzTarget settings_fuzz;
FuzzTarget stream_reader_fuzz;
FuzzTarget table_csv_fuzz;
}

namespace tarvok::test {
namespace {

TEST(Fuzz, RunsTheCorpus) {
  const std::pair<const char*, FuzzTarget*> targets[] = {
      {"command_line_fuzz", command_line_fuzz},
      {"exchange_command_line_fuzz", exchange_command_line_fuzz},
      {"settings_file_fuzz", settings_file_fuzz},
      {"field_list_fuzz", field_list_fuzz},
      {"form_script_fuzz", form_script_fuzz},
      {"link_bytes_fuzz", link_bytes_fuzz},
      {"messages_fuzz", messages_fuzz},
      {"modem_text_fuzz", modem_text_fuzz},
      {"practice_exchange_fuzz", practice_exchange_fuzz},
      {"project_file_fuzz", project_file_fuzz},
      {"section_image_fuzz", section_image_fuzz},
      {"section_text_fuzz", section_text_fuzz},
      {"server_packets_fuzz", server_packets_fuzz},
      {"settings_fuzz", settings_fuzz},
      {"stream_reader_fuzz", stream_reader_fuzz},
      {"table_csv_fuzz", table_csv_fuzz},
  };
  for (const auto& [name, target] : targets) {
    int inputs = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(TARVOK_SOURCE_DIR "/fuzz/corpus/") + name)) {
      SCOPED_TRACE(entry.path().string());
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string bytes(std::istreambuf_iterator<char>(file), {});
      EXPECT_EQ(target(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
      ++inputs;
    }
    EXPECT_GT(inputs, 0) << name;
  }
}

}  // namespace
}  // namespace tarvok::test
