#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Billing Mode" (`frmBillingMode`): how calls are charged, and the country, which decides local codes and
 * the unit. */
class BillingModeEditor : public EditorForm {
 public:
  BillingModeEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  bool MaySave() override;
  void Write(IniEdit& project) override;

 private:
  FormLayout CountryGroup();
  FormLayout AmountField(int field);
  FormLayout Switches(std::string title, const std::vector<int>& fields);
  std::string ValidCountry(const IniText& project);
  void FillCountries(std::string_view country);
  void ShowCountry();
  std::string CountryNumber() const;
  std::string LocalCode() const;
  std::string FieldOf(int field);
  Control& BoxOf(int field);

  Control* country_;
  Control* local_code_;
  std::vector<std::string> numbers_;  // by entry of the countries
  std::string loaded_country_;
  std::string shown_country_;
};

}  // namespace tarvok::editors
