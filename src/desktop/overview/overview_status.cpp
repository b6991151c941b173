// The lower half of the overview: connection, last transfer, and findings.

#include <QDateTime>
#include <QHBoxLayout>
#include <QLocale>
#include <QVBoxLayout>

#include "desktop/look/headings.h"
#include "desktop/look/line_delegate.h"
#include "desktop/look/shown_text.h"
#include "desktop/overview/last_transfer.h"
#include "desktop/overview/overview_pane.h"
#include "project/places.h"
#include "sections/row_fields.h"
#include "store/connection_settings.h"
#include "store/header_keys.h"

namespace tarvok::desktop {
namespace {

constexpr std::size_t kMostFindings = 500;
constexpr int kRowsShown = 8;

/** "Port 012 (card 3, channel 4) \u00B7 Busy: 9999 is ..." */
QString FindingText(const IniText& project, const Finding& finding, const CodePage& page) {
  const std::optional<StatedRow> row = FindRow(finding.section, finding.key);
  const bool connects = finding.section == kHeaderSection;
  const std::string name = row        ? RowLabel(project, *row->table, row->row)
                           : connects ? "Connection " + finding.key
                                      : finding.section + " " + finding.key;
  return QStringLiteral("%1 \u00B7 %2: %3")
      .arg(page.ToLetters(name), page.ToLetters(finding.field), page.ToLetters(finding.what));
}

QString LastTransferText(const LastTransfer& last) {
  const QString time = QLocale().toString(QDateTime::fromSecsSinceEpoch(last.time_s), QLocale::ShortFormat);
  return QStringLiteral("Last transfer: %1, %2 the exchange, %3, %4")
      .arg(Words(last.what), last.loaded ? QStringLiteral("from") : QStringLiteral("to"),
           Words(EndText(last.end)), time);
}

}  // namespace

QWidget* OverviewPane::MakeConnection() {
  auto* texts = new QVBoxLayout;
  texts->setSpacing(2);
  connection_ = new QLabel;
  connection_->setObjectName(QStringLiteral("ConnectionLine"));
  last_transfer_ = MakeMuted(new QLabel);
  last_transfer_->setObjectName(QStringLiteral("LastTransfer"));
  for (QLabel* label : {connection_, last_transfer_}) {
    label->setTextFormat(Qt::PlainText);
    texts->addWidget(label);
  }
  auto* practice = new QPushButton(QStringLiteral("&Use Practice Exchange"));
  practice->setObjectName(QStringLiteral("cmdPractice"));
  practice->setToolTip(QStringLiteral("Connects this project to a practice exchange on this computer"));
  connect(practice, &QPushButton::clicked, this, [this] { commands_.use_practice(); });
  auto* transfer = new QPushButton(QStringLiteral("&Transfer Config..."));
  transfer->setObjectName(QStringLiteral("cmdTransfer"));
  connect(transfer, &QPushButton::clicked, this, [this] { commands_.open_transfer(); });
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(texts, 1);
  layout->addWidget(practice);
  layout->addWidget(transfer);
  return row;
}

QWidget* OverviewPane::MakeFindings() {
  findings_text_ = new QLabel;
  findings_text_->setObjectName(QStringLiteral("FindingsText"));
  findings_text_->setTextFormat(Qt::PlainText);
  findings_ = new QListWidget;
  findings_->setObjectName(QStringLiteral("Findings"));
  findings_->setAccessibleName(QStringLiteral("Findings of the check"));
  findings_->setUniformItemSizes(true);
  findings_->setItemDelegate(new LineDelegate(findings_));
  connect(findings_, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { GoToFinding(item); });
  auto* box = new QWidget;
  auto* layout = new QVBoxLayout(box);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  layout->addWidget(findings_text_);
  layout->addWidget(findings_);
  return box;
}

void OverviewPane::ShowConnection(const IniText& project) {
  const CodePage& page = PageOf(parts_.settings);
  QStringList lines;
  for (const std::string& line : SummaryLines(ReadConnection(project, ConnectionForm::kTransfer))) {
    lines += MessageText(line, page).trimmed();
  }
  connection_->setText(lines.join(QStringLiteral("  \u00B7  ")));
  const std::optional<LastTransfer> last =
      FindLastTransfer(parts_.settings, parts_.store.files(), parts_.state.project_file);
  last_transfer_->setText(last ? LastTransferText(*last)
                               : QStringLiteral("This project has not been transferred yet."));
}

void OverviewPane::ShowFindings(const std::shared_ptr<const IniText>& project) {
  const CodePage& page = PageOf(parts_.settings);
  const std::vector<Finding> findings =
      IsProject(*project) ? parts_.check.Findings(project) : std::vector<Finding>();
  findings_->clear();
  places_.clear();
  for (const Finding& finding : findings) {
    if (places_.size() == kMostFindings) break;
    places_.push_back(PlaceOf(finding.section, finding.key, finding.field));
    auto* item = new QListWidgetItem(FindingText(*project, finding, page), findings_);
    if (commands_.is_offered(places_.back())) {
      item->setToolTip(QStringLiteral("Enter or a double click goes there"));
    }
  }
  const auto count = findings.size();
  findings_text_->setText(!IsProject(*project) ? QStringLiteral("There is no project to check.")
                          : count == 0
                              ? QStringLiteral("Nothing to report: all values are valid, and all references "
                                               "lead to something.")
                          : count == 1 ? QStringLiteral("1 thing to look at:")
                                       : QStringLiteral("%1 things to look at:").arg(count));
  findings_->setVisible(count > 0);
  const int rows = std::min(static_cast<int>(count), kRowsShown);
  const int row_height = count == 0 ? 0 : findings_->sizeHintForRow(0);
  findings_->setFixedHeight(rows * row_height + 2 * findings_->frameWidth());
  if (count > 0) findings_->setCurrentRow(0);
}

void OverviewPane::GoToFinding(const QListWidgetItem* item) {
  const int row = findings_->row(item);
  if (row < 0) return;
  const Place place = places_[static_cast<std::size_t>(row)];
  if (commands_.is_offered(place)) {
    commands_.go(place);
  } else if (place.section == kHeaderSection) {
    commands_.open_transfer();  // the connection settings are opened from it
  } else {
    findings_text_->setText(QStringLiteral("No form of this program shows that place."));
  }
}

}  // namespace tarvok::desktop
