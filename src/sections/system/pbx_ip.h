#pragma once

#include "sections/field.h"
#include "sections/image_writer.h"
#include "sections/uses.h"
#include "store/ini_text.h"

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

}  // namespace tarvok::sections
