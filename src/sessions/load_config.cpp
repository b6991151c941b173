#include "sessions/load_config.h"

#include <string>
#include <vector>

#include "sections/registry.h"
#include "sessions/get_whole.h"
#include "sessions/log_in.h"
#include "sessions/open_connection.h"
#include "sessions/store_loaded.h"

namespace tarvok::sessions {
namespace {

bool GetSection(Transfer& transfer, const Section& section) {
  return GetWhole(transfer, {.ask = [&] { return transfer.messages().GetConfig(section.number); },
                             .pause_s = kRequestPause_s,
                             .refused = "Request for Get Config Error (RE)",
                             .getting = "Getting " + std::string(section.name) + "...",
                             .give_up_words = section.GetFailedText()});
}

bool Decode(Transfer& transfer, const Section& section, const WireLayout& layout) {
  const MessageState& state = transfer.messages().state();
  if (state.received_size != layout.size) {
    transfer.parts().log.Line("section " + std::to_string(section.number) + ": " +
                              std::to_string(state.received_size) + " bytes received, expected " +
                              std::to_string(layout.size));
  }
  const std::span<const std::uint8_t> bytes = transfer.messages().section_image().bytes();
  const ImageReader image(bytes.first(static_cast<std::size_t>(layout.size)));
  std::vector<std::string> cut;
  const Status written = UpdateTemporary(transfer, [&](IniEdit& edit) {
    layout.decode(image, edit);
    cut = TooLongLists(edit);
  });
  for (const std::string& line : cut) transfer.report().Note(line);
  return written.ok() || transfer.report().Fail(written.message());
}

bool GetSections(Transfer& transfer) {
  const int version = transfer.version;
  for (const Section* section : ReadPlan(version)) {
    const WireLayout* layout = section->LayoutAt(version, Direction::kLoad);
    if (!GetSection(transfer, *section) || !Decode(transfer, *section, *layout)) return false;
    transfer.report().Progress(section->number, kBarEnd);
  }
  return transfer.waits().WaitSeconds(kAnswerPause_s);  // earlier requests had a longer pause before them
}

/** The bytes of all sections, and of the two-byte requests for them. */
std::int64_t BytesOfLoad(int version) {
  constexpr int kAsk = 2;
  std::int64_t bytes = 0;
  for (const Section* section : ReadPlan(version)) {
    bytes += kAsk + SizeAt(section->number, version, Direction::kLoad);
  }
  return bytes;
}

bool RunLoad(Transfer& transfer) {
  if (!OpenConnection(transfer) || !LogIn(transfer, kLoadWords)) return false;
  const std::int64_t start_ms = transfer.parts().events.Tick_ms();
  transfer.report().Progress(0, kBarEnd);
  transfer.pace().BeginTransfer(BytesOfLoad(transfer.version));
  if (!GetSections(transfer)) return false;
  transfer.report().Progress(kBarEnd, kBarEnd);
  transfer.pace().EndTransfer();
  return EndLoading(transfer, "Get All Config Finished", start_ms);
}

}  // namespace

bool LoadConfiguration(Transfer& transfer) {
  if (!transfer.view().Ask(kLoadQuestion) || !BeginTemporary(transfer)) return false;
  transfer.Begin("Load Data Config");
  const bool loaded = RunLoad(transfer);
  // Release the line while the user decides where to store the project.
  transfer.CleanUp();
  if (loaded) AdviseAnotherLoad(transfer);
  return loaded && StoreLoaded(transfer);
}

}  // namespace tarvok::sessions
