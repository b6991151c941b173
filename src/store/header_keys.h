#pragma once

#include <string_view>

namespace tarvok::store {

/** The header section, which stands in every project and in the system file. */
inline constexpr std::string_view kHeaderSection = "Chk_Tarvok";
inline constexpr std::string_view kHeaderTag = "Chk";
inline constexpr std::string_view kProjectTag = "TARVOK";
/** The tag as a load from an exchange writes it. */
inline constexpr std::string_view kLoadedTag = "tarvok";
/** In the system file only: "1" lets a session go on without a link, a bench setting. */
inline constexpr std::string_view kEstablishKey = "establish";
/** The folder that the billing form was left with. */
inline constexpr std::string_view kLastBilling = "LastBil";

/** What the user is told of a file that is missing or has no tag. */
inline constexpr std::string_view kNotAProject = "File not found or File not correct.";

}  // namespace tarvok::store
