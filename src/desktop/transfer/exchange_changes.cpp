#include "desktop/transfer/exchange_changes.h"

#include "desktop/look/shown_text.h"
#include "desktop/window/difference_list.h"
#include "sections/routing/tbl_route.h"
#include "sections/system/mini_bar.h"
#include "sections/system/pbx_ip.h"
#include "store/header_keys.h"

namespace tarvok::desktop {
namespace {

constexpr SideNames kSides = {"exchange", "project"};

}  // namespace

std::string SentPart(const IniText& project) {
  IniEdit edit(project);
  for (const std::string_view section :
       {kHeaderSection, tbl_route::kTable.section, mini_bar::kTable.section, pbx_ip::kAddress.section}) {
    edit.DeleteSection(section);
  }
  return edit.Bytes();
}

void ShowWhatWillChange(DesktopParts& parts, const ConnectionSettings& connection, QWidget* parent) {
  auto* list = new DifferenceList(
      PageOf(parts.settings), kSides,
      QStringLiteral("Nothing: as far as this program knows, the exchange already has this configuration."));
  const Result<std::string> copy = parts.copies.Find(connection);
  if (copy.ok()) {
    const std::shared_ptr<const IniText> project = parts.store.Snapshot(parts.state.project_file);
    list->ShowDifferences(
        CompareProjects(IniText(SentPart(IniText(copy.value()))), IniText(SentPart(*project))));
  } else if (copy.status().kind() == ErrorKind::kNotFound) {
    list->ShowText(QStringLiteral(
        "Nothing was sent to this exchange or loaded from it on this computer yet, so there is "
        "nothing to compare with. The send will replace the whole configuration of the exchange."));
  } else {
    list->ShowText(MessageText(copy.status().message(), PageOf(parts.settings)));
  }
  ShowInDialog(list, QStringLiteral("WhatWillChange"), QStringLiteral("What Will Change"), parent);
}

}  // namespace tarvok::desktop
