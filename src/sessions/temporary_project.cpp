#include "sessions/temporary_project.h"

#include <string_view>
#include <utility>

#include "store/new_project.h"

namespace tarvok::sessions {
namespace {

constexpr std::string_view kFileName = "outcfg.tvk";

}  // namespace

Result<std::unique_ptr<TemporaryProject>> TemporaryProject::Make(FileSystem& files,
                                                                 const std::string& parent) {
  Result<std::string> folder = files.MakePrivateFolder(parent);
  if (!folder.ok()) return folder.status();
  return std::unique_ptr<TemporaryProject>(new TemporaryProject(files, std::move(folder).value()));
}

TemporaryProject::TemporaryProject(FileSystem& files, std::string folder)
    : files_(files), folder_(std::move(folder)), path_(InFolder(folder_, kFileName)) {}

TemporaryProject::~TemporaryProject() {
  // Leftovers in a temporary folder are harmless, so ignore failures. A folder that still contains the file
  // is not removed.
  if (discarded_) [[maybe_unused]]
    const Status file = files_.Remove(path_);
  [[maybe_unused]] const Status folder = files_.Remove(folder_);
}

}  // namespace tarvok::sessions
