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

/** The exchange versions that the tool serves, in hundredths. */
inline constexpr int kLowestVersion = 100;
inline constexpr int kHighestVersion = 110;
/** A version that no exchange has: what is sent or asked from it on never travels. */
inline constexpr int kNever = 1000;

/** From project to image and back. An encoder's error stays in the image; a decoder never fails. */
using Encoder = void (*)(const IniText& project, ImageWriter& image);
using Decoder = void (*)(const ImageReader& image, IniEdit& project);
/** The lists that decoders made longer than a project can hold, a line each: an exchange's pools have room for them. */
std::vector<std::string> WhatIsCut(const IniEdit& project);

/** One byte layout of a section. It holds from the given versions on until the next layout of the same
 * direction. */
struct WireLayout {
  int size = 0;       // bytes; 0 is the end of the list
  int send_from = 0;  // lowest version that is sent this layout
  int load_from = 0;  // lowest version that answers in it
  Encoder encode = nullptr;
  Decoder decode = nullptr;
};

enum class Direction { kSend, kLoad };

/** A section of the exchange's configuration: the unit that travels. */
struct Section {
  int number = 0;
  std::string_view name;         // as a load tells it: "Getting " + name + "..."
  std::string_view progress;     // as a send tells it
  std::string_view send_failed;  // the box of a send that fails here
  int send_from = kNever;        // lowest version that a send of the configuration sends it to
  int load_from = kNever;        // lowest version that a load asks for it
  int times_sent = 1;
  bool moves_bar = true;  // the progress bar goes to the section's number
  std::array<WireLayout, 3> layouts{};

  /** What a load logs where the exchange keeps refusing the section. */
  std::string GetFailedText() const;
  /** The layout of a version, nullptr if the section has none. */
  const WireLayout* LayoutAt(int version, Direction direction) const;
};

/** All sections by number: the one list that send, load, compare, command line and practice exchange walk. */
std::span<const Section> Sections();
/** nullptr if there is no such section. */
const Section* FindSection(int number);
/** Bytes of the section at that version, 0 if there is no such section or layout. */
int SizeAt(int number, int version, Direction direction);

/** The sections that a send to this version carries, in order, one that goes twice standing twice. */
std::vector<const Section*> SendPlan(int version);
/** The sections that a load from this version asks for, in order. */
std::vector<const Section*> ReadPlan(int version);

/** The time, which a send carries before its first section: 6 bytes, not a section of its own. */
inline constexpr std::string_view kTimeProgress = "Sending Time...";
inline constexpr std::string_view kTimeFailed = "Send Time failed (RE)";
inline constexpr int kTimeSize = 6;
inline constexpr int kTimeBar = 1;
/** Where the progress bar of a whole configuration ends. */
inline constexpr int kBarEnd = 46;

/** Section numbers that carry new level passwords, level 1 first, three bytes each. */
inline constexpr std::array<int, 3> kPasswordSections = {29, 30, 31};
inline constexpr int kPasswordSize = 3;

}  // namespace tarvok::sections
