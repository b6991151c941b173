#include "desktop/transfer/transfer_kind.h"

#include "desktop/transfer/transfer_dialog.h"
#include "sessions/billing_files.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/ping.h"
#include "sessions/send_alone.h"
#include "sessions/send_config.h"

namespace tarvok::desktop {
namespace {

/** A session that needs no folder. */
template <bool (*kSession)(Transfer&)>
bool Plain(Transfer& transfer, const std::string&) {
  return kSession(transfer);
}

constexpr std::string_view kConfigLogHead = "Send Config History...";
constexpr TransferAction kPing = {
    "cmdIdle", "&Ping Test",      "Checks that the exchange responds; changes nothing",
    false,     Carries::kNothing, Plain<PingExchange>};

}  // namespace

const TransferKind& ConnectKind() {
  static const TransferKind kind = {
      .form = TransferForm::kConnect,
      .name = "frmConnect",
      .title = "Transfer Config",
      .log_head = kConfigLogHead,
      .actions = {{"cmdWrite", "Send &Data Config", "Sends the whole configuration to the exchange", false,
                   Carries::kAll, Plain<SendConfiguration>},
                  {"cmdLoad", "&Load Data Config", "Reads the whole configuration from the exchange", true,
                   Carries::kAll, Plain<LoadConfiguration>},
                  {"cmdSendRoute", "Send PBX Link &Table", "Sends the PBX link table alone", false,
                   Carries::kPart, Plain<SendLinkTable>},
                  {"cmdSendIP", "Send New &IP PBX", "Sends the exchange its new IP address", false,
                   Carries::kPart, Plain<SendIpAddress>},
                  {"cmdSendMiniBar", "Send Mini &Bar", "Sends the mini bar list alone", false, Carries::kPart,
                   Plain<SendMiniBarList>},
                  kPing},
  };
  return kind;
}

const TransferKind& MiniBarKind() {
  static const TransferKind kind = {
      .form = TransferForm::kMiniBar,
      .name = "frmMiniBarCon",
      .title = "Transfer Mini Bar",
      .log_head = kConfigLogHead,
      .actions = {{"cmdWrite", "&Send Mini Bar", "Sends the 512 records to the exchange", false,
                   Carries::kPart, Plain<SendMiniBarList>},
                  {"cmdLoad", "&Load Mini Bar", "Reads the 512 records from the exchange", true,
                   Carries::kPart, Plain<LoadMiniBarList>}},
  };
  return kind;
}

const TransferKind& BillingKind() {
  static const TransferKind kind = {
      .form = TransferForm::kBilling,
      .name = "frmBilling",
      .title = "Transfer File Billing",
      .log_head = "Send Billing History",
      .actions = {{"cmdWrite", "&Send Billing Files", "Sends the tables of the folder to the exchange", false,
                   Carries::kPart, SendBillingFiles},
                  kPing},
      .has_folder = true,
  };
  return kind;
}

FormFactory MakeTransferFactory(DesktopParts& parts, const TransferKind& kind, QWidget* window) {
  return [&parts, &kind, window](const FormContext& context) -> std::unique_ptr<Form> {
    return std::make_unique<TransferDialog>(parts, kind, context, window);
  };
}

}  // namespace tarvok::desktop
