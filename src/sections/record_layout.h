#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "sections/image_reader.h"
#include "sections/record_item.h"
#include "sections/record_writer.h"
#include "sections/records.h"
#include "sections/uses.h"

namespace tarvok::sections {

/** A byte as it is. 255 is not set. */
inline constexpr Rule kByte = {
    1, [](RecordWriter& row, int at, int field) { row.Plain(at, field, kUnsetByte); },
    [](const ImageReader& record, int at, RowText& row) { row.Add(record.Plain(at)); }};

/** 16 bits as they are. 65,535 is not set; so is a high byte of 255 when it is read. */
inline constexpr Rule kWord = {
    2, [](RecordWriter& row, int at, int field) { row.PlainWord(at, field, kUnsetWord); },
    [](const ImageReader& record, int at, RowText& row) { row.Add(record.PlainWord(at)); }};

/** The value minus 1, in one byte. It is read with at least `kWidth` digits. */
template <int kWidth = 0>
inline constexpr Rule kMinusOne = {
    1, [](RecordWriter& row, int at, int field) { row.MinusOne(at, field); },
    [](const ImageReader& record, int at, RowText& row) { row.Add(record.PlusOne(at, kWidth)); }, "-1"};

/** The value minus 1, in 16 bits. It is read with at least `kWidth` digits; a high byte of 255 is not set. */
template <int kWidth = 0>
inline constexpr Rule kMinusOneWord = {
    2, [](RecordWriter& row, int at, int field) { row.MinusOneWord(at, field); },
    [](const ImageReader& record, int at, RowText& row) { row.Add(record.PlusOneWord(at, kWidth)); }, "-1"};

/** Like kMinusOneWord, but only 65,535 is not set. */
template <int kWidth = 0>
inline constexpr Rule kMinusOneRawWord = kMinusOneWord<kWidth>.ReadBy([](const ImageReader& record, int at,
                                                                         RowText& row) {
  row.Add(record.RawPlusOneWord(at, kWidth));
});

/** Packed digits, 0 if not set. Bytes 0 and 255 are skipped when they are read. */
template <int kBytes>
inline constexpr Rule kPacked = {
    kBytes, [](RecordWriter& row, int at, int field) { row.Digits(at, kBytes, field); },
    [](const ImageReader& record, int at, RowText& row) { row.Add(record.Digits(at, kBytes)); },
    "packed digits"};

/** Two decimal digits in one byte, each in four bits; 255 is not set. It is read as one binary number. */
inline constexpr Rule kPackedByte = {1, [](RecordWriter& row, int at, int field) { row.Hex(at, field); },
                                     kByte.get, "packed digits"};

/** The characters of a text, 0 after its end. */
template <int kBytes>
inline constexpr Rule kCharacters = {
    kBytes, [](RecordWriter& row, int at, int field) { row.Text(at, kBytes, row.SetText(field)); },
    [](const ImageReader& record, int at, RowText& row) { row.AddText(record.Bytes(at, kBytes)); },
    "characters"};

/** Bytes of 255 that hold nothing. */
template <int kBytes>
inline constexpr Rule kUnused255 = {
    kBytes, [](RecordWriter& row, int at, int) { row.Fill(at, kBytes, kUnsetByte); }, nullptr, "255"};

/** The items of a regular record, by offset. It encodes and decodes a row. */
template <std::size_t kCount>
class RecordLayout {
 public:
  /** The compiler refuses items that overlap or are out of order. Bytes without an item are 0. */
  consteval explicit RecordLayout(const RecordItem (&items)[kCount])
      : items_(std::to_array(items)), by_field_(items_) {
    for (std::size_t i = 1; i < kCount; ++i) {
      if (items[i].at < items[i - 1].at + items[i - 1].rule.bytes) throw "items overlap";
    }
    std::ranges::sort(by_field_, {}, &RecordItem::field);
  }

  constexpr const std::array<RecordItem, kCount>& items() const { return items_; }
  constexpr int size() const { return items_.back().at + items_.back().rule.bytes; }
  /** For sections in which an unused record is 255 throughout. */
  constexpr RecordShape AllUnset() const { return {size(), 0, size()}; }

  void operator()(RecordWriter& row) const {
    for (const RecordItem& item : items_) {
      if (item.rule.put != nullptr) item.rule.put(row, item.at, item.field);
    }
  }
  void operator()(const ImageReader& record, RowText& row) const {
    for (const RecordItem& item : by_field_) {
      if (item.rule.get != nullptr) item.rule.get(record, item.at, row);
    }
  }

 private:
  std::array<RecordItem, kCount> items_;
  std::array<RecordItem, kCount> by_field_;
};

}  // namespace tarvok::sections
