#pragma once

#include "sections/field.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_text.h"

namespace tarvok::sections {

namespace pbx_ip {

/** Two keys: the address's four parts, and the last two bytes of the MAC address in hexadecimal. */
extern const Table kAddress;
extern const Table kMac;

}  // namespace pbx_ip

/**
 * Section 44: 6 bytes. It has a session of its own and is never loaded.
 *
 *  0 MAC field 2     1 MAC field 1     2 the four parts of the address
 *
 * The MAC bytes stand in reverse. "F" is a digit in them; a part of the address that is "F" or missing is 0.
 */
void EncodePbxIp(const IniText& project, ImageWriter& image);

}  // namespace tarvok::sections
