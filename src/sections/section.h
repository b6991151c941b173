#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>

#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/table.h"
#include "sections/uses.h"
#include "store/ini_edit.h"
#include "store/ini_text.h"

namespace tarvok::sections {

/** The supported exchange versions, in hundredths. */
inline constexpr int kLowestVersion = 100;
inline constexpr int kHighestVersion = 110;
/** Above every real version. A section whose first version is this one is never transferred. */
inline constexpr int kNever = 1000;
/** The number of a section that is not transferred with the configuration. */
inline constexpr int kNoNumber = -1;

/** Convert a project to an image and back. Encoders leave an error in the image; decoders never fail. */
using Encoder = void (*)(const IniText& project, ImageWriter& image);
using Decoder = void (*)(const ImageReader& image, IniEdit& project);

/** One byte layout of a section. In each direction it applies from its version until that of the next
 * layout. */
struct WireLayout {
  int size = 0;  // bytes; 0 ends the list
  Encoder encode = nullptr;
  Decoder decode = nullptr;
  int send_from = 0;  // lowest version that receives this layout
  int load_from = 0;  // lowest version that answers with it
};

enum class Direction { kSend, kLoad };

/** A section of the exchange's configuration: the unit of transfer. Each section is one constant of this
 * type, next to its coders. */
struct Section {
  int number = kNoNumber;
  std::string_view name;             // shown by a load: "Getting " + name + "..."
  std::string_view name_if_refused;  // shown if the exchange keeps refusing it; empty: `name`
  std::string_view progress;         // shown by a send
  std::string_view send_failed;      // message box of a send that fails here
  int send_from = kLowestVersion;    // lowest version that a full send includes it for
  int load_from = kLowestVersion;    // lowest version that a load requests it from
  int times_sent = 1;
  bool moves_bar = true;  // the progress bar advances to the section's number
  WireLayout layouts[3];
  std::array<const Table*, 7> tables{};  // nullptr ends the list

  /** The tables whose keys the coders read and write. */
  std::span<const Table* const> OwnTables() const {
    return {tables.begin(), std::ranges::find(tables, nullptr)};
  }
  /** The text that a load logs when the exchange keeps refusing the section. */
  std::string GetFailedText() const;
  /** The layout for a version, or nullptr if the section has none. */
  const WireLayout* LayoutAt(int version, Direction direction) const;
};

}  // namespace tarvok::sections
