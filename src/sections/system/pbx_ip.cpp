#include "sections/system/pbx_ip.h"

#include "sections/records.h"
#include "store/number_text.h"

namespace tarvok::sections {
namespace pbx_ip {
namespace {

// 255 is the unset byte on the wire, so the editor stops at 254 and FE.
constexpr int kMost = 254;

constexpr Field Part(std::string_view name) {
  return Number(name, 0, kMost).UnsetAs("0");
}

constexpr Field MacByte(std::string_view name) {
  return Field{name, FieldKind::kHex, 0, kMost}.UnsetAs("0");
}

constexpr Field kAddressFields[] = {Part("IP 1"), Part("IP 2"), Part("IP 3"), Part("IP 4")};
constexpr Field kMacFields[] = {MacByte("MAC 1"), MacByte("MAC 2")};

}  // namespace

const Table kAddress = {
    .section = "IP", .row_name = "IP Address", .command = "setip", .key = "IP", .fields = kAddressFields};
const Table kMac = {
    .section = "IP", .row_name = "MAC Address", .command = "setip", .key = "MAC", .fields = kMacFields};

}  // namespace pbx_ip

void EncodePbxIp(const IniText& project, ImageWriter& image) {
  using namespace pbx_ip;
  RecordWriter mac(image, 0, kMac, kMac.key, KeyValue(project, kMac));
  mac.Checked(0, 2, ValHex(mac.Get(2)));
  mac.Checked(1, 1, ValHex(mac.Get(1)));

  constexpr int kParts = 4;
  RecordWriter address(image, 0, kAddress, kAddress.key, KeyValue(project, kAddress));
  for (int part = 1; part <= kParts; ++part) address.Plain(1 + part, part, 0);
}

}  // namespace tarvok::sections
