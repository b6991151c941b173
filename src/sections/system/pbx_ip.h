#pragma once

#include "sections/section.h"

namespace tarvok::sections {

namespace pbx_ip {

/** Two keys: the four parts of the address, and the last two bytes of the MAC address in hexadecimal. */
extern const Table kAddress;
extern const Table kMac;

}  // namespace pbx_ip

/**
 * Section 44: 6 bytes. It is sent in a session of its own and never loaded.
 *
 *  0 MAC field 2     1 MAC field 1     2 the four parts of the address
 *
 * The MAC bytes are in reverse order, and "F" is a digit in them. A part of the address that is "F" or
 * missing is sent as 0.
 */
void EncodePbxIp(const IniText& project, ImageWriter& image);

inline constexpr Section kPbxIpSection = {.number = 44,
                                          .progress = "Sending New PBX IP Address...",
                                          .send_failed = "Sending new PBX IP Address  (RE)",
                                          .send_from = kNever,
                                          .load_from = kNever,
                                          .layouts = {{6, EncodePbxIp}},
                                          .tables = {&pbx_ip::kAddress, &pbx_ip::kMac}};

}  // namespace tarvok::sections
