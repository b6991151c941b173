#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "desktop/overview/background_check.h"
#include "desktop/uses.h"
#include "frame/exchanged_copies.h"
#include "io/code_page.h"
#include "link/event_server.h"
#include "link/port.h"
#include "link/send_log.h"
#include "store/history.h"
#include "store/project_store.h"
#include "store/settings_store.h"
#include "store/shared_state.h"

namespace tarvok::desktop {

/** What the program passes to the window and its forms. All references must outlive the window. */
struct DesktopParts {
  EventServer& events;
  PortMaker& ports;
  ProjectStore& store;
  SettingsStore& settings;
  SharedState& state;
  std::string system_file;
  std::string temp_folder;                  // where each load creates a private folder for its project
  std::function<SendLog::Sink()> open_log;  // starts a new log; returns no sink if that fails
  History& history;
  ExchangedCopies& copies;
  KeepProject keep;                                    // call before a project is replaced or saved
  std::string practice_program;                        // path of the practice exchange
  std::string practice_folder;                         // its memory
  std::function<std::string()> system_file_line = {};  // says which system file is in use
  BackgroundCheck check = {};
};

/** The window's own per-user settings, each named once. */
namespace desktop_key {
inline constexpr std::string_view kGroup = kCodePageGroup;
inline constexpr std::string_view kGeometry = "Geometry";  // followed by the size of the screen
inline constexpr std::string_view kSplitter = "Splitter";
inline constexpr std::string_view kLastFolder = "LastFolder";
inline constexpr std::string_view kCodePage = kCodePageKey;
inline constexpr std::string_view kColours = "Colours";
}  // namespace desktop_key

/** The code page of this user's projects. */
inline const CodePage& PageOf(SettingsStore& settings) {
  return CodePage::Of(settings);
}

}  // namespace tarvok::desktop
