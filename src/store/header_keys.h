#pragma once

#include <string_view>

namespace tarvok::store {

/** The header section, present in every project and in the system file. */
inline constexpr std::string_view kHeaderSection = "Chk_Tarvok";
inline constexpr std::string_view kHeaderTag = "Chk";
inline constexpr std::string_view kProjectTag = "TARVOK";
/** The tag that a load from an exchange writes. */
inline constexpr std::string_view kLoadedTag = "tarvok";
/** In the system file only: "1" lets a session continue without a link. For bench tests. */
inline constexpr std::string_view kEstablishKey = "establish";
/** The folder last used in the billing form. */
inline constexpr std::string_view kLastBilling = "LastBil";

/** Shown for a file that is missing or has no tag. */
inline constexpr std::string_view kNotAProject = "File not found or File not correct.";

}  // namespace tarvok::store
