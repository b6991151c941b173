#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Two tables with one telephone number per row: link trunks, which port profiles refer to, and the numbers
 * that a key telephone dials. The row's value is the number itself. */
inline constexpr int kLinkTrunks = 30;
inline constexpr int kDialPhones = 24;

namespace link_trunk {
extern const Table kTable;
}
namespace dial_phone {
extern const Table kTable;
}

/**
 * Section 39 and section 38, both from version 102. A record is packed digits; an unused row is 0.
 *
 *  39  30 records of 8 bytes, 240 bytes: a link trunk's number
 *  38  24 records of 4 bytes, 96 bytes: a key dial phone's number
 */
void EncodeLinkTrunk(const IniText& project, ImageWriter& image);
void EncodeDialPhone(const IniText& project, ImageWriter& image);
/** Every row is written; one without a number becomes an empty key. Bytes 0 and 255 are skipped. */
void DecodeLinkTrunk(const ImageReader& image, IniEdit& project);
void DecodeDialPhone(const ImageReader& image, IniEdit& project);

inline constexpr Section kDialPhoneSection = {.number = 38,
                                              .name = "Key Dial Phone",
                                              .progress = "Sending Key Dial Phone...",
                                              .send_failed = "Send Key Dial Phone failed (RE)",
                                              .send_from = 102,
                                              .load_from = 102,
                                              .layouts = {{96, EncodeDialPhone, DecodeDialPhone}},
                                              .tables = {&dial_phone::kTable}};

inline constexpr Section kLinkTrunkSection = {.number = 39,
                                              .name = "Link Trunk Number",
                                              .progress = "Sending Link Trunk Number...",
                                              .send_failed = "Send Key Link Trunk Number failed (RE)",
                                              .send_from = 102,
                                              .load_from = 102,
                                              .layouts = {{240, EncodeLinkTrunk, DecodeLinkTrunk}},
                                              .tables = {&link_trunk::kTable}};

}  // namespace tarvok::sections
