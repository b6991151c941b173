#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "frame/uses.h"
#include "store/connection_settings.h"
#include "store/file_system.h"

namespace tarvok::frame {

/**
 * What each exchange holds as far as this user's program knows: a copy of the project that was last sent to it,
 * or loaded from it, whole. An exchange is told by the way to it.
 */
class ExchangedCopies {
 public:
  /** Makes a folder and those above it, if they are missing; false if that can't be. */
  using MakeFolder = std::function<bool(const std::string& folder)>;

  ExchangedCopies(FileSystem& files, std::string folder, MakeFolder make_folder)
      : files_(files), folder_(std::move(folder)), make_folder_(std::move(make_folder)) {}

  /** Takes the place of the copy before. */
  Status Keep(const ConnectionSettings& connection, std::string_view project);
  /** kNotFound where nothing was sent or loaded yet. */
  Result<std::string> Find(const ConnectionSettings& connection);

 private:
  std::string PathOf(const ConnectionSettings& connection) const;

  FileSystem& files_;
  std::string folder_;
  MakeFolder make_folder_;
};

}  // namespace tarvok::frame
