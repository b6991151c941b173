#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Account codes with their passwords and permissions. */
inline constexpr int kAccountRows = 200;

namespace account {

enum FieldNumber : int { kAccount = 1, kPassword, kNumber, kConfig, kTenan, kTime };

extern const Table kTable;

}  // namespace account

/**
 * Section 17, from version 101: 5,500 bytes, enough for 500 records of 11 bytes. Only the first 200 are
 * used; the other 3,300 bytes are always 0. An unused row is 11 bytes of 255.
 *
 *  at bytes
 *   0   3  Account       packed digits
 *   3   2  Password      packed digits
 *   5   2  Number        -1
 *   7   1  Config        -1
 *   8   1  Tenan         -1
 *   9   2  Time (sec)
 *
 * Number is sent only if the row has both account and password. Otherwise it is 255, 255 if none of the three
 * is set, and 254, 255 if any is.
 */
void EncodeAccount(const IniText& project, ImageWriter& image);
/** Both special values of Number come back as "F". Number is not padded, unlike in the editor. */
void DecodeAccount(const ImageReader& image, IniEdit& project);

inline constexpr Section kAccountSection = {.number = 17,
                                            .name = "Account",
                                            .progress = "Sending Account...",
                                            .send_failed = "Send Account failed (RE)",
                                            .send_from = 101,
                                            .load_from = 101,
                                            .layouts = {{5500, EncodeAccount, DecodeAccount}},
                                            .tables = {&account::kTable}};

}  // namespace tarvok::sections
