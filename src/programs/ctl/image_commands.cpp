#include "programs/ctl/image_commands.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "programs/ctl/exit_status.h"
#include "programs/ctl/project_commands.h"
#include "programs/uses.h"
#include "sections/registry.h"
#include "store/header_keys.h"
#include "store/new_project.h"
#include "store/number_text.h"
#include "store/whole_write.h"

namespace tarvok::ctl {
namespace {

std::string FileOf(const std::string& folder, int section) {
  return InFolder(folder, Padded(section, 2) + ".bin");
}

std::string AsText(const std::vector<std::uint8_t>& bytes) {
  return {bytes.begin(), bytes.end()};
}

/** The layout with a coder for the direction, or the reason why there is none. */
Result<const WireLayout*> CodedLayout(int number, int version, Direction direction) {
  const Section* section = FindSection(number);
  const WireLayout* layout = section == nullptr ? nullptr : section->LayoutAt(version, direction);
  const bool coded = layout != nullptr &&
                     (direction == Direction::kSend ? layout->encode != nullptr : layout->decode != nullptr);
  if (coded) return layout;
  return Status(ErrorKind::kBadData, "section " + std::to_string(number) + " is not transferred");
}

Result<std::string> Encoded(const IniText& project, int section, int version) {
  const Result<const WireLayout*> layout = CodedLayout(section, version, Direction::kSend);
  if (!layout.ok()) return layout.status();
  ImageWriter image(layout.value()->size);
  layout.value()->encode(project, image);
  if (!image.ok()) return Status(ErrorKind::kBadData, image.error());
  return AsText(image.bytes());
}

struct DecodeStep {
  const WireLayout* layout;
  std::string bytes;
};

Result<DecodeStep> ReadStep(FileSystem& files, const std::string& file, int section, int version) {
  const Result<const WireLayout*> layout = CodedLayout(section, version, Direction::kLoad);
  if (!layout.ok()) return layout.status();
  Result<std::string> bytes = files.Read(file);
  if (!bytes.ok()) return bytes.status();
  const auto size = static_cast<std::size_t>(layout.value()->size);
  if (bytes.value().size() != size) {
    return Status(ErrorKind::kBadData, file + ": section " + std::to_string(section) + " has " +
                                           std::to_string(size) + " bytes, the file " +
                                           std::to_string(bytes.value().size()));
  }
  return DecodeStep{layout.value(), std::move(bytes).value()};
}

/** True if an image would replace the project that it is made from. */
bool ReplacesProject(ProjectStore& store, const std::string& file, const std::string& project) {
  return IsSameFile(store.files(), file, project);
}

int MisusedForProject(const std::string& file) {
  return Misused("-o: " + file + " is the project itself");
}

/** Performs all steps in one write, so that the project gets all of them or none. */
int Run(ProjectStore& store, const std::vector<DecodeStep>& steps, const std::string& project) {
  const FileIdentity identity = store.files().Identify(project);
  const bool is_new = !identity.exists || identity.size == 0;
  if (!is_new) {
    const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
    if (!text.ok()) return Fail(text.status().message());
  }
  std::vector<std::string> cut;
  const Status written = store.Update(project, [&](IniEdit& edit) {
    if (is_new) edit.Set(kHeaderSection, kHeaderTag, kLoadedTag);
    for (const DecodeStep& step : steps) {
      const std::vector<std::uint8_t> bytes(step.bytes.begin(), step.bytes.end());
      step.layout->decode(ImageReader(bytes), edit);
    }
    cut = TooLongLists(edit);
  });
  for (const std::string& line : cut) Tell(line);
  return written.ok() ? kDone : Fail(written.message());
}

}  // namespace

int Encode(ProjectStore& store, const std::string& project, int section, int version,
           const std::string& file) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  const Result<std::string> image = Encoded(*text.value(), section, version);
  if (!image.ok()) return Fail(image.status().message());
  if (ReplacesProject(store, file, project)) return MisusedForProject(file);
  const int from = FindSection(section)->send_from;
  if (from > version && from != kNever) {
    Tell("a send to version " + std::to_string(version) + " does not carry section " +
         std::to_string(section) + ", one from " + std::to_string(from) + " on does");
  }
  const Status written = WriteWhole(store.files(), file, image.value(), Flush::kLater);
  return written.ok() ? kDone : Fail(written.message());
}

int EncodeAll(ProjectStore& store, const std::string& project, int version, const std::string& folder) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());

  std::vector<std::pair<int, std::string>> images;
  for (const Section* section : SendPlan(version)) {
    if (!CodedLayout(section->number, version, Direction::kSend).ok()) continue;
    const std::string file = FileOf(folder, section->number);
    if (ReplacesProject(store, file, project)) return MisusedForProject(file);
    Result<std::string> image = Encoded(*text.value(), section->number, version);
    if (!image.ok()) return Fail(image.status().message());
    images.emplace_back(section->number, std::move(image).value());
  }

  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) return Fail(folder + ": " + error.message());
  for (const auto& [section, image] : images) {
    const Status written = WriteWhole(store.files(), FileOf(folder, section), image, Flush::kLater);
    if (!written.ok()) return Fail(written.message());
  }
  return kDone;
}

int Decode(ProjectStore& store, const std::string& image, int section, int version,
           const std::string& project) {
  const Result<DecodeStep> step = ReadStep(store.files(), image, section, version);
  return step.ok() ? Run(store, {step.value()}, project) : Fail(step.status().message());
}

int DecodeAll(ProjectStore& store, const std::string& folder, int version, const std::string& project) {
  std::vector<DecodeStep> steps;
  for (const Section* section : ReadPlan(version)) {
    const std::string file = FileOf(folder, section->number);
    if (!store.files().Identify(file).exists) continue;
    Result<DecodeStep> step = ReadStep(store.files(), file, section->number, version);
    if (!step.ok()) return Fail(step.status().message());
    steps.push_back(std::move(step).value());
  }
  if (steps.empty()) return Fail(folder + ": the folder contains no image of this version");
  return Run(store, steps, project);
}

}  // namespace tarvok::ctl
