#include <array>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/system/box_values.h"
#include "sections/rows.h"
#include "sections/system/pbx_ip.h"

namespace tarvok::editors {
namespace ip_pbx_editor {

/** "IP PBX" (`frmSetIP`): the exchange's IP address, `txtIP_Port(0)` to (3), and the last bytes of its MAC
 * address, `txtRunScript(0)` and (1). A dot or Return moves to the next box. */
class IpPbxEditor : public EditorForm {
 public:
  IpPbxEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static constexpr std::size_t kAddressParts = 4;
  static constexpr std::size_t kMacBytes = 2;

  bool GoOn(std::size_t box, Key key);

  std::array<TextBox*, kAddressParts + kMacBytes> boxes_{};
};

// 255 and FF mean "not set" to the exchange and are never sent.
constexpr int kHighestPart = 254;
constexpr std::string_view kUnsetMac = "FF";
constexpr std::string_view kHighestMac = "FE";
constexpr EntryRule kMacRule = {.characters = "0123456789abcdefABCDEF", .most = 2};

IpPbxEditor::IpPbxEditor(const EditorContext& context, const FormName& name) : EditorForm(context, name) {
  std::vector<FormLayout> address;
  std::vector<FormLayout> mac;
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    const bool is_mac = i >= kAddressParts;
    const int index = static_cast<int>(is_mac ? i - kAddressParts : i);
    TextBox& box = AddText({is_mac ? "txtRunScript" : "txtIP_Port", index},
                           (is_mac ? "MAC byte " : "IP part ") + std::to_string(index + 1),
                           is_mac ? kMacRule : DigitsRule(3));
    box.entered = [&box] { box.selected = true; };
    box.key = [this, i](Key key) { return GoOn(i, key); };
    boxes_[i] = &box;
    std::vector<FormLayout>& row = is_mac ? mac : address;
    row.push_back(row.empty() ? layout::Field(is_mac ? "MAC Address :" : "IP Address :", box)
                              : layout::Of(box));
  }
  address.push_back(layout::Stretch());
  mac.push_back(layout::Stretch());
  SetLayout(layout::Column(
      {layout::Group("PBX IP Address", {layout::Row(std::move(address)), layout::Row(std::move(mac))}),
       layout::Note("The address is sent by \"31 - Transfer Config\", Send New IP PBX."), layout::Stretch(),
       OkAndCancel()}));
}

bool IpPbxEditor::GoOn(std::size_t box, Key key) {
  const bool dot = key.code == KeyCode::kCharacter && key.character == '.' && box < kAddressParts;
  if (!dot && key.code != KeyCode::kReturn) return false;
  Focus(*boxes_[(box + 1) % boxes_.size()]);
  return true;
}

void IpPbxEditor::Load(const IniText& project) {
  const FieldList address(KeyValue(project, pbx_ip::kAddress));
  const FieldList mac(KeyValue(project, pbx_ip::kMac));
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    const bool is_mac = i >= kAddressParts;
    const int field = static_cast<int>(is_mac ? i - kAddressParts : i) + 1;
    boxes_[i]->text = is_mac ? std::string(mac[field]) : CellText(address[field]);
  }
}

void IpPbxEditor::Write(IniEdit& project) {
  std::string address;
  std::string mac;
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    const std::string& text = boxes_[i]->text;
    if (i < kAddressParts) {
      address += (text.empty() ? "0" : AtMost(text, kHighestPart)) + "|";
    } else {
      const bool unset = SameName(text, kUnsetMac);
      mac += (text.empty() ? "0" : unset ? std::string(kHighestMac) : text) + "|";
    }
  }
  project.Set(pbx_ip::kMac.section, pbx_ip::kMac.key, mac);
  project.Set(pbx_ip::kAddress.section, pbx_ip::kAddress.key, address);
}

}  // namespace ip_pbx_editor

extern const Editor kIpPbxEditor{
    "28 - IP PBX", "setip", {"frmSetIP", "IP PBX"}, Make<ip_pbx_editor::IpPbxEditor>};

}  // namespace tarvok::editors
