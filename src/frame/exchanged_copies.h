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
 * Keeps, for each exchange, a copy of the project that was last sent to it or loaded from it as a whole. An
 * exchange is identified by its connection.
 */
class ExchangedCopies {
 public:
  /** Creates a folder and its parents if they are missing; returns false on failure. */
  using MakeFolder = std::function<bool(const std::string& folder)>;

  ExchangedCopies(FileSystem& files, std::string folder, MakeFolder make_folder)
      : files_(files), folder_(std::move(folder)), make_folder_(std::move(make_folder)) {}

  /** Replaces the previous copy. */
  Status Keep(const ConnectionSettings& connection, std::string_view project);
  /** kNotFound if nothing has been sent or loaded yet. */
  Result<std::string> Find(const ConnectionSettings& connection);

 private:
  std::string PathOf(const ConnectionSettings& connection) const;

  FileSystem& files_;
  std::string folder_;
  MakeFolder make_folder_;
};

}  // namespace tarvok::frame
