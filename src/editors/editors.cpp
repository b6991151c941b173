#include "editors/editors.h"

#include "store/ini_text.h"

namespace tarvok::editors {

extern const Editor kSetupNumberEditor, kPortDefineEditor, kPortConfigEditor, kBossEditor, kLinkTrunkEditor,
    kDialPhoneEditor, kCallForwardEditor, kVoiceMailBoxEditor, kAccountEditor, kHuntGroupEditor,
    kIncomingListEditor, kTenantEditor, kRouteMapEditor, kRouteListEditor, kGroupOutEditor, kE1MappingEditor,
    kE1NumberingEditor, kDidRedirectEditor, kBanAllowEditor, kBanNumberGroupEditor, kSystemConfigEditor,
    kVmCallBackEditor, kPabxModeEditor, kBillingModeEditor, kMiniBarEditor, kRunScriptEditor, kPbxLinkEditor,
    kIpPbxEditor, kSetupKeyEditor;

std::span<const Editor* const> Editors() {
  static constexpr const Editor* kInTreeOrder[] = {
      &kSetupNumberEditor,  &kPortDefineEditor,  &kPortConfigEditor,   &kBossEditor,
      &kLinkTrunkEditor,    &kDialPhoneEditor,   &kCallForwardEditor,  &kVoiceMailBoxEditor,
      &kAccountEditor,      &kHuntGroupEditor,   &kIncomingListEditor, &kTenantEditor,
      &kRouteMapEditor,     &kRouteListEditor,   &kGroupOutEditor,     &kE1MappingEditor,
      &kE1NumberingEditor,  &kDidRedirectEditor, &kBanAllowEditor,     &kBanNumberGroupEditor,
      &kSystemConfigEditor, &kVmCallBackEditor,  &kPabxModeEditor,     &kBillingModeEditor,
      &kMiniBarEditor,      &kRunScriptEditor,   &kPbxLinkEditor,      &kIpPbxEditor,
      &kSetupKeyEditor};
  return kInTreeOrder;
}

const Editor* FindEditor(std::string_view form) {
  for (const Editor* editor : Editors()) {
    if (SameName(editor->name.form, form)) return editor;
  }
  return nullptr;
}

std::unique_ptr<EditorForm> OpenEditor(const Editor& editor, const EditorContext& context) {
  std::unique_ptr<EditorForm> form = editor.make(context, editor.name);
  form->Open();
  return form;
}

}  // namespace tarvok::editors
