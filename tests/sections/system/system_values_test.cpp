// Single values, the times of the week and the holidays.

#include "sections/system/mini_bar.h"
#include "sections/system/pbx_ip.h"
#include "sections/system/run_script.h"
#include "sections/system/system_numbers.h"
#include "sections/system/system_times.h"
#include "tests/floors.h"
#include "tests/sections/record_case.h"
#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

void EncodeFirstItem(const IniText& project, ImageWriter& image) {
  EncodeMiniBarRecord(project, 1, image);
}

TEST(SystemKeys, EncodesKeys) {
  const std::tuple<Encoder, int, std::string, std::string> cases[] = {
      {EncodeVMNumber, 3, "", "00*3"},
      {EncodeVMNumber, 3, "[SystemConfig]\nVMNum=1203\nRecNum=9", "12 A3 00"},
      {EncodeVMNumber, 3, "[SystemConfig]\nVMNum=12*",
       "section SystemConfig, row VMNum, field Number: value 12*" + kNotDialled},
      {EncodeRecordNumber, 3, "[SystemConfig]\nVMNum=1203\nRecNum=1234567", "12 34 56"},
      {EncodeRecordNumber, 3, "[SystemConfig]\nRecNum=F", "00*3"},
      {EncodeCardPortVM, 2, "", "FF FF"},
      {EncodeCardPortVM, 2, "[SystemConfig]\nCard=13\nPort=F", "0D FF"},
      {EncodeRunScript, 40, "", "FF*40"},
      {EncodeRunScript, 40, "[RunScript]\ndata=1|510|F|0|x|256|65535|9",
       "00 00 FD 01 FF*6 FF 00 FE FF FF*26"},
      {EncodePbxIp, 6, "", "00*6"},
      {EncodePbxIp, 6, "[IP]\nIP=192|168|10|254|\nMAC=1a|F|", "0F 1A C0 A8 0A FE"},
      {EncodePbxIp, 6, "[IP]\nMAC=100|1", "section IP, row MAC, field MAC 1: value 100" + kTooLarge},
      {EncodeFirstItem, 32, "", "00*32"},
      {EncodeFirstItem, 32, "[MINIBAR]\n001=Cola 0.3|9999|", "43 6F 6C 61 20 30 2E 33 00*12 0F 27 00*10"},
      {EncodeFirstItem, 32, "[MiniBar]\n001=F|300", "00*20 2C 01 00*10"},
      {EncodeFirstItem, 32, "[MiniBar]\n001=aaaaaaaaaaaaaaaaaaaabb|F|", "61*20 00*12"},
      {EncodeFirstItem, 32, "[MiniBar]\n001=A|65536|",
       "section MiniBar, row 001, field Price: value 65536" + kTooLarge},
  };
  for (const auto& [encode, size, project, image] : cases) ExpectImage(encode, size, project, 0, image);
}

TEST(SystemKeys, DecodesKeys) {
  const std::tuple<Decoder, std::string, std::string> cases[] = {
      {DecodeVMNumber, "12 A3 00", "[SystemConfig]\r\nVMNum=1203\r\n"},
      {DecodeVMNumber, "00*3", "[SystemConfig]\r\nVMNum=\r\n"},
      {DecodeVMNumber, "0A 05 67", "[SystemConfig]\r\nVMNum=0567\r\n"},
      {DecodeRecordNumber, "12 00 34", "[SystemConfig]\r\nRecNum=12\r\n"},
      {DecodeRecordNumber, "FF*3", "[SystemConfig]\r\nRecNum=FFFFFF\r\n"},
      {DecodeCardPortVM, "0D FF", "[SystemConfig]\r\ncard=13\r\nport=F\r\n"},
      {DecodeRunScript, "FF*40", "[RunScript]\r\nData=\r\n"},
      {DecodeRunScript, "00 00 FD 01 FF*6 FF 00 05 FF 00*26",
       "[RunScript]\r\nData=1|510|F|F|F|256|65286|\r\n"},
      {DecodeRunScript, "", "[RunScript]\r\nData=1|1|1|1|1|1|1|\r\n"},
  };
  for (const auto& [decode, image, keys] : cases)
    EXPECT_EQ(Decoded(decode, Hex(image)).bytes(), keys) << image;
}

TEST(SystemKeys, StoresReceivedMiniBarRecords) {
  const std::tuple<std::string, int, std::string> cases[] = {
      {"Cola", 0, "Cola|0"}, {"Cola", 65535, "Cola|F"},  {"", 5, "F|5"},   {"", 0, ""},
      {"", 65535, ""},       {" A|B\r\nC ", 5, "ABC|5"}, {"  ", 5, "F|5"}, {"|\t", 0, ""}};
  for (const auto& [name, price, row] : cases) {
    const IniText base("[MiniBar]\n511=A|1|\n512=old\n");
    IniEdit edit(base);
    DecodeMiniBarRecord(name, price, 512, edit);
    EXPECT_EQ(edit.Bytes(), "[MiniBar]\n511=A|1|\n" + (row.empty() ? row : "512=" + row + "\n"));
  }
}

TEST(SystemTimes, EncodesWeekdays) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"", "00*16", "00*16"},
      {"Mon=0800|1730", "00*4 08 00 00*10", "00*4 17 30 00*10"},
      {"Sun=2359|0001\nSat=1200|1234", "00 00 23 59 00*10 12 00", "00 00 00 01 00*10 12 34"},
      // Short times are read as they are; a missing one is 0, "F" is unset.
      {"Sun=800|2\nMon=0800\nTue=F|F", "00 00 80 00 08 00 FF FF 00*8", "00 00 02 02 00 00 FF FF 00*8"},
      {"Sun=zz9a|12:30", "00 00 00 9A 00*12", "00 00 12 30 00*12"},
  };
  for (const auto& [keys, day, night] : cases) {
    const std::string project = "[systemconfig]\n" + keys + "\n";
    EXPECT_EQ(Encoded(EncodeDayTime, 16, project).bytes(), Hex(day)) << keys;
    EXPECT_EQ(Encoded(EncodeNightTime, 16, project).bytes(), Hex(night)) << keys;
  }
}

TEST(SystemTimes, AddsNightTimesToDayTimes) {
  const IniText day =
      Decoded(DecodeDayTime, Hex("11 22 23 59 08 05 FF 0A 00*8"), "[SystemConfig]\nMon=0700|2200\nPbx=1\n");
  ExpectKeys(day, "[SystemConfig]\nSun=2359\nMon=0805\nTue=FF0A\nSat=0000\nPbx=1\n");
  const IniText both = Decoded(DecodeNightTime, Hex("00 00 17 30 18"), day.bytes());
  ExpectKeys(both, "[SystemConfig]\nSun=2359|1730\nMon=0805|1800\nSat=0000|0000\n");
  ExpectKeys(Decoded(DecodeNightTime, Hex("00 00 17 30")), "[SystemConfig]\nSun=0000|1730\n");
  ExpectKeys(Decoded(DecodeNightTime, Hex("00 00 19"), both.bytes()), "[SystemConfig]\nSun=2359|1900\n");
}

TEST(SystemTimes, EncodesHolidaysAsHexadecimalAndDecodesThemAsDecimal) {
  ExpectCoded({EncodeWeekend, DecodeWeekend, "SystemConfig", "W50", 100, 98, "[SystemConfig]\nW51=1|1\n"},
              {{"", "00 00", kOut},
               {kEmpty, "00 00", kBack},
               {"12|25", "25 12", kOut},
               {"18|37", "25 12", kBack},
               {"F|05", "05 FF"},
               {"11", "FF 11", kOut},
               {"01|01", "01 01"},
               {"09|00", "00 09"},
               {kEmpty, "FF FF", kBack},
               {"x|1F", "1F 00", kOut},
               {"12|123", "Day: value 123" + kTooLarge}});
  ExpectKeys(Decoded(DecodeWeekend, Hex("25 12"), "[SystemConfig]\nW04=12|25\n"),
             "[SystemConfig]\nW01=18|37\nW04=\n");
}

}  // namespace
}  // namespace tarvok::test
