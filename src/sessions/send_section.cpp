#include "sessions/send_section.h"

#include <string>

#include "store/header_keys.h"

namespace tarvok::sessions {
namespace {

constexpr int kRouteMap = 8;

/** `why` is a separate line before the box; "" for none. */
bool FailSection(Transfer& transfer, const Section& section, std::string_view dots,
                 std::string_view why = {}) {
  if (section.number == kRouteMap) {
    transfer.report().Failed(".............", "Failed (RE)");
  } else {
    transfer.report().Failed(dots);
  }
  if (!why.empty()) transfer.report().LogBoth(why);
  return transfer.report().Fail(section.send_failed);
}

}  // namespace

std::shared_ptr<const IniText> ProjectToSend(Transfer& transfer) {
  std::shared_ptr<const IniText> project = transfer.store().Snapshot(transfer.parts().project_file);
  if (!project->bytes().empty()) return project;
  [[maybe_unused]] const bool failed = transfer.report().Fail(kNotAProject);
  return nullptr;
}

bool SendSection(Transfer& transfer, const Section& section, const IniText& project,
                 std::vector<std::uint8_t>& image, std::string_view ok_dots, std::string_view failed_dots) {
  const WireLayout* layout = section.LayoutAt(transfer.version, Direction::kSend);
  transfer.report().Start(section.progress);
  ImageWriter writer(layout->size);
  layout->encode(project, writer);
  if (!writer.ok()) return FailSection(transfer, section, failed_dots, writer.error());
  image = writer.bytes();
  if (!transfer.messages().SendConfig(section.number, image))
    return FailSection(transfer, section, failed_dots);
  transfer.report().Finished(ok_dots);
  return true;
}

}  // namespace tarvok::sessions
