#include "editors/ports/key_dialogs.h"

#include <algorithm>
#include <utility>

#include "sections/ports/key_dss.h"
#include "sections/routing/group_out.h"
#include "store/number_text.h"

namespace tarvok::editors::setup_key_editor {

using namespace key_dss;

namespace {

constexpr std::string_view kOldLabel = "Grp Out";
constexpr std::string_view kDigitsStarHash = "0123456789*#";

constexpr ButtonCode kKeyButtons[] = {{kTelephone, "&Telephone number"},
                                      {kTrunk, "T&runk"},
                                      {kExtension, "&Extension number"},
                                      {kGroupOut, "&Group out"},
                                      {kMultiline, "&Multiline"}};
constexpr std::span<const ButtonCode> kDssButtons = std::span(kKeyButtons).first(3);

EntryRule RuleOf(const Field& digits) {
  EntryRule rule = DigitsRule(digits.high);
  if (!digits.symbols.empty()) rule.characters = kDigitsStarHash;
  return rule;
}

/** The parts before and after the first comma. */
std::pair<std::string_view, std::string_view> AtComma(std::string_view argument) {
  const std::size_t comma = argument.find(',');
  if (comma == std::string_view::npos) return {argument, {}};
  return {argument.substr(0, comma), argument.substr(comma + 1)};
}

std::string WithMap(std::string text, std::string_view map) {
  return map.empty() ? text : text.append(",").append(map);
}

std::string GroupText(std::int64_t group) {
  return std::string(group_out::kTable.label) + " " + std::to_string(group);
}

}  // namespace

std::string ButtonLabel(std::string_view field) {
  const std::string_view rest = field.substr(std::min(kOldGroupOut.size(), field.size()));
  const bool old = field.starts_with(kOldGroupOut) && !rest.empty() &&
                   rest.find_first_not_of("0123456789") == std::string_view::npos;
  return old ? std::string(kOldLabel) + " " + std::to_string(Val(rest)) : std::string(field);
}

std::string ButtonField(std::string_view label) {
  const std::size_t at = label.find(kOldLabel);
  if (at == std::string_view::npos) return std::string(label);
  return std::string(kOldGroupOut) + Padded(Val(label.substr(at + kOldLabel.size())), 2);
}

KeyDialog::KeyDialog(std::span<const ButtonCode> codes, const Field& statement, Ends ends)
    : codes_(codes),
      statement_(statement),
      ends_(std::move(ends)),
      number_(AddText({"txtNumber"}, "Number", {})),
      ok_(AddButton("cmdOK", "&OK", [this] { Ok(); })),
      cancel_(AddButton("cmdCancel", "&Cancel", [this] { ends_.close(); })) {
  for (const ButtonCode& button : codes) {
    const auto index = static_cast<int>(options_.size());
    options_.push_back(&AddOption({"Option1", index}, button.caption));
    options_.back()->changed = [this] { ShowOption(); };
  }
  AddInput(number_);
}

void KeyDialog::TakeInput(Control& input) {
  inputs_.push_back(&input);
  input.key = [this, &input](Key key) {
    if (key.code == KeyCode::kTab) {
      FocusNext(input);
    } else if (key.code == KeyCode::kReturn) {
      Ok();
    } else if (key.code == KeyCode::kEscape) {
      ends_.close();
    } else {
      return false;
    }
    return true;
  };
}

FormLayout KeyDialog::Buttons() {
  return layout::Row({layout::Stretch(), layout::Of(ok_), layout::Of(cancel_)});
}

void KeyDialog::FocusNext(const Control& input) {
  const auto at = std::find(inputs_.begin(), inputs_.end(), &input) - inputs_.begin();
  const auto count = static_cast<std::ptrdiff_t>(inputs_.size());
  for (std::ptrdiff_t step = 1; step < count; ++step) {
    Control& next = *inputs_[static_cast<std::size_t>((at + step) % count)];
    if (next.enabled) return Focus(next);
  }
}

std::string_view KeyDialog::code() const {
  for (std::size_t i = 0; i < options_.size(); ++i) {
    if (options_[i]->on) return codes_[i].code;
  }
  return {};
}

const Field& KeyDialog::ArgumentOf(std::string_view code, bool with_map) const {
  const auto found =
      std::find_if(statement_.codes.begin(), statement_.codes.end(), [&](const CodedValue& value) {
        return value.code == code && (value.after_comma != nullptr) == with_map;
      });
  return *found->argument;
}

const Field& KeyDialog::MapOf(std::string_view code) const {
  const auto found = std::find_if(
      statement_.codes.begin(), statement_.codes.end(),
      [&](const CodedValue& value) { return value.code == code && value.after_comma != nullptr; });
  return *found->after_comma;
}

void KeyDialog::Fill(std::string_view label) {
  std::string text(label);
  // An old-style group out is shown as a present-day one.
  if (label.find(kOldLabel) != std::string_view::npos)
    text = std::string(kGroupOut) + std::to_string(Val(ButtonField(label).substr(kOldGroupOut.size())));
  const std::string_view code = std::string_view(text).substr(0, kTelephone.size());
  std::size_t chosen = 0;
  for (std::size_t i = 0; i < codes_.size(); ++i) {
    if (codes_[i].code == code) chosen = i;
  }
  options_[chosen]->on = true;
  if (codes_[chosen].code == code) FillInputs(code, std::string_view(text).substr(code.size()));
  ShowOption();
}

void KeyDialog::FillInputs(std::string_view /*code*/, std::string_view argument) {
  number_.text = argument;
}

std::vector<Control*> KeyDialog::InputsOf(std::string_view code) {
  number_.rule = RuleOf(ArgumentOf(code));
  return {&number_};
}

/** Enables the inputs of the chosen option and gives the focus to the first one. */
void KeyDialog::ShowOption() {
  const std::vector<Control*> used = InputsOf(code());
  for (Control* input : inputs_) input->enabled = std::find(used.begin(), used.end(), input) != used.end();
  const bool fits = number_.text.empty() || TypeWhole(number_.rule, number_.text).has_value();
  if (number_.enabled && !fits) number_.text.clear();
  Focus(*used.front());
}

std::string KeyDialog::Text() const {
  return number_.text.empty() ? std::string() : std::string(code()) + number_.text;
}

void KeyDialog::Ok() {
  if (touched_) ends_.done(Text());
  ends_.close();
}

DssKeyDialog::DssKeyDialog(std::string_view label, Ends ends)
    : KeyDialog(kDssButtons, kDss.fields[0], std::move(ends)) {
  std::vector<FormLayout> choices;
  for (Option* option : options()) choices.push_back(layout::Of(*option));
  SetLayout(layout::Column(
      {layout::Group("Button", std::move(choices)), layout::Field("Number :", number()), Buttons()}));
  Fill(label);
}

PhoneKeyDialog::PhoneKeyDialog(std::string_view label, std::vector<std::string> lines, Ends ends)
    : KeyDialog(kKeyButtons, kKeys.fields[0], std::move(ends)),
      map_(AddInput(AddText({"txtMapDigit"}, "Map Digit", RuleOf(MapOf(kTrunk))))),
      group_(AddInput(AddEntries<ComboBox>(
          {"cmbGrpOut"}, "Group Out",
          NumberedEntries(1, kGroupsOut, 0, std::string(group_out::kTable.label) + " ")))),
      group_map_(AddInput(AddText({"txtMapGrpOut"}, "Map Digit", RuleOf(MapOf(kGroupOut))))),
      line_(AddInput(AddEntries<ComboBox>({"cmbMulti"}, "Line", std::move(lines)))) {
  number().changed = [this] { LimitTrunk(); };
  map_.changed = [this] { LimitTrunk(); };
  std::vector<FormLayout> choices;
  for (Option* option : options()) choices.push_back(layout::Of(*option));
  SetLayout(layout::Column(
      {layout::Group("Key", std::move(choices)),
       layout::Group("Number", {layout::Field("Number :", number()), layout::Field("Map Digit :", map_)}),
       layout::Group("Group out",
                     {layout::Field("Group Out :", group_), layout::Field("Map Digit :", group_map_)}),
       layout::Group("Multiline", {layout::Field("Line :", line_)}), Buttons()}));
  Fill(label);
}

void PhoneKeyDialog::FillInputs(std::string_view code, std::string_view argument) {
  const auto [front, map] = AtComma(argument);
  if (code == kTrunk) {
    number().text = front;
    map_.text = map;
  } else if (code == kGroupOut) {
    // A group that is not offered may come from an exchange.
    if (const std::int64_t group = Val(front); !front.empty() && group >= 0)
      group_.ChooseOrJoin(GroupText(group));
    group_map_.text = map;
  } else if (code == kMultiline) {
    line_.Choose(argument);
  } else {
    number().text = argument;
  }
}

std::vector<Control*> PhoneKeyDialog::InputsOf(std::string_view code) {
  if (code == kGroupOut) return {&group_, &group_map_};
  if (code == kMultiline) return {&line_};
  std::vector<Control*> inputs = KeyDialog::InputsOf(code);
  if (code == kTrunk) {
    LimitTrunk();
    inputs.push_back(&map_);
  }
  return inputs;
}

/** Limits a trunk's number if map digits follow; after a long number there is no room for them. */
void PhoneKeyDialog::LimitTrunk() {
  if (code() != kTrunk) return;
  const Field& with_digits = ArgumentOf(kTrunk, true);
  number().rule = RuleOf(map_.text.empty() ? ArgumentOf(kTrunk) : with_digits);
  const bool room = number().text.size() <= static_cast<std::size_t>(with_digits.high);
  map_.rule = RuleOf(MapOf(kTrunk));
  if (!room) map_.rule.fits = [](std::string_view, char) { return false; };
}

std::string PhoneKeyDialog::Text() const {
  if (code() == kGroupOut) {
    if (group_.current == kNoIndex) return {};
    const std::string_view group = group_.Chosen().substr(GroupText(0).size() - 1);
    return WithMap(std::string(kGroupOut).append(group), group_map_.text);
  }
  if (code() == kMultiline)
    return line_.current == kNoIndex ? std::string() : std::string(kMultiline).append(line_.Chosen());
  const std::string text = KeyDialog::Text();
  return code() == kTrunk && !text.empty() ? WithMap(text, map_.text) : text;
}

}  // namespace tarvok::editors::setup_key_editor
