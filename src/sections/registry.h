#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The supported exchange versions, in hundredths. */
inline constexpr int kLowestVersion = 100;
inline constexpr int kHighestVersion = 110;
/** Above every real version. A section whose first version is this one is never transferred. */
inline constexpr int kNever = 1000;

/** Convert a project to an image and back. Encoders leave an error in the image; decoders never fail. */
using Encoder = void (*)(const IniText& project, ImageWriter& image);
using Decoder = void (*)(const ImageReader& image, IniEdit& project);
/** One line for each list that decoders made longer than a project value can be. An exchange's pools have
 * room for such lists. */
std::vector<std::string> WhatIsCut(const IniEdit& project);

/** One byte layout of a section. In each direction it applies from its version until that of the next
 * layout. */
struct WireLayout {
  int size = 0;       // bytes; 0 ends the list
  int send_from = 0;  // lowest version that receives this layout
  int load_from = 0;  // lowest version that answers with it
  Encoder encode = nullptr;
  Decoder decode = nullptr;
};

enum class Direction { kSend, kLoad };

/** A section of the exchange's configuration: the unit of transfer. */
struct Section {
  int number = 0;
  std::string_view name;         // shown by a load: "Getting " + name + "..."
  std::string_view progress;     // shown by a send
  std::string_view send_failed;  // message box of a send that fails here
  int send_from = kNever;        // lowest version that a full send includes it for
  int load_from = kNever;        // lowest version that a load requests it from
  int times_sent = 1;
  bool moves_bar = true;  // the progress bar advances to the section's number
  std::array<WireLayout, 3> layouts{};

  /** The text that a load logs when the exchange keeps refusing the section. */
  std::string GetFailedText() const;
  /** The layout for a version, or nullptr if the section has none. */
  const WireLayout* LayoutAt(int version, Direction direction) const;
};

/** All sections by number. Send, load, compare, the command line and the practice exchange all use this
 * list. */
std::span<const Section> Sections();
/** Returns nullptr if there is no such section. */
const Section* FindSection(int number);
/** The section's size in bytes at that version, or 0 if there is no such section or layout. */
int SizeAt(int number, int version, Direction direction);

/** The sections that a send to this version includes, in order. A section that is sent twice is listed
 * twice. */
std::vector<const Section*> SendPlan(int version);
/** The sections that a load from this version requests, in order. */
std::vector<const Section*> ReadPlan(int version);

/** The time, 6 bytes, which is sent before the first section. It is not a section itself. */
inline constexpr std::string_view kTimeProgress = "Sending Time...";
inline constexpr std::string_view kTimeFailed = "Send Time failed (RE)";
inline constexpr int kTimeSize = 6;
inline constexpr int kTimeBar = 1;
/** The end of the progress bar when a whole configuration is transferred. */
inline constexpr int kBarEnd = 46;

/** Numbers of the sections that hold new level passwords, level 1 first, three bytes each. */
inline constexpr std::array<int, 3> kPasswordSections = {29, 30, 31};
inline constexpr int kPasswordSize = 3;

}  // namespace tarvok::sections
