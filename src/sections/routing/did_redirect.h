#pragma once

#include "sections/section.h"

namespace tarvok::sections {

/** Targets for ranges of incoming DID numbers of an E1 link. */
inline constexpr int kDidRows = 400;

namespace did_redirect {

/** Fields of a row, from 1. `Map Type` decides what `Map Number` refers to: a number row, a route list, or
 * nothing. */
enum FieldNumber : int { kLink = 1, kDidStart, kDidEnd, kMapType, kMapNumber };

extern const Table kTable;

}  // namespace did_redirect

/**
 * Section 20, every version: 400 records of 7 bytes, 2,800 bytes. An unused row is seven bytes of 255.
 *
 *  at bytes
 *   0   2  DID Start
 *   2   2  DID End
 *   4   1  E1            -1
 *   5   2  Map Type      and Map Number
 *
 * The last two bytes are the target, which depends on Map Type: 0 is the number row -1, below A000; 1 is the
 * list -1 + A000, below B000; 2 is B000, 3 is C000, 4 is D000; any other type is 255, 255. A Map Number that
 * would reach into the next type's range is an error. DID numbers are sent in binary, so leading zeros are
 * lost.
 */
void EncodeDIDRedirect(const IniText& project, ImageWriter& image);
/** A word whose high byte is 255 is unset. Targets from D000 up are type 4, from C000 up type 3, and so
 * on down. */
void DecodeDIDRedirect(const ImageReader& image, IniEdit& project);

inline constexpr Section kDidRedirectSection = {.number = 20,
                                                .name = "DID",
                                                .progress = "Sending DID...",
                                                .send_failed = "Send DID failed (RE)",
                                                .layouts = {{2800, EncodeDIDRedirect, DecodeDIDRedirect}},
                                                .tables = {&did_redirect::kTable}};

}  // namespace tarvok::sections
