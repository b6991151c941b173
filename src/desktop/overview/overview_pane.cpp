#include "desktop/overview/overview_pane.h"

#include <utility>

#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"
#include "sections/ports/assign.h"
#include "sections/ports/port_def.h"
#include "store/connection_settings.h"
#include "store/project_there.h"

namespace tarvok::desktop {
namespace {

/** The scale of all large texts. One size for all: each further size is a font to load. */
constexpr double kLarge = 1.4;

/** Makes a tile: its title, the count in large letters, and the text after it. */
QWidget* MakeTile(const QString& title, OverviewPane::Tile& shown) {
  auto* tile = new QFrame;
  tile->setFrameShape(QFrame::StyledPanel);
  tile->setBackgroundRole(QPalette::Base);
  tile->setAutoFillBackground(true);
  auto* layout = new QVBoxLayout(tile);
  layout->setContentsMargins(14, 10, 14, 10);
  layout->setSpacing(2);
  shown.number = MakeHeading(new QLabel, kLarge);
  shown.number->setAccessibleName(title);
  shown.after = new QLabel;
  for (QLabel* label : {shown.number, shown.after}) label->setTextFormat(Qt::PlainText);
  auto* line = new QHBoxLayout;
  line->setSpacing(6);
  line->addWidget(shown.number, 0, Qt::AlignBaseline);
  line->addWidget(shown.after, 1, Qt::AlignBaseline);
  layout->addWidget(MakeMuted(new QLabel(title)));
  layout->addLayout(line);
  return tile;
}

/** A spot in the colour of a card family, which adapts to light and dark colours. */
class Spot : public QWidget {
 public:
  explicit Spot(CardFamily family) : family_(family) { setFixedSize(10, 10); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RackView::FamilyColour(family_, palette()));
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
  }

 private:
  CardFamily family_;
};

}  // namespace

OverviewPane::OverviewPane(DesktopParts& parts, Commands commands)
    : parts_(parts), commands_(std::move(commands)) {
  setObjectName(QStringLiteral("Overview"));
  setAccessibleName(QStringLiteral("Overview of the project"));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(24, 24, 24, 24);
  layout->setSpacing(8);
  name_ = MakeHeading(new QLabel, kLarge);
  folder_ = MakeMuted(new QLabel);
  problem_ = new QLabel;
  problem_->setObjectName(QStringLiteral("Problem"));
  problem_->setWordWrap(true);
  rack_ = new RackView;
  rack_hint_ = MakeMuted(
      new QLabel(QStringLiteral("The rack is empty. Cards and ports are entered in 2 - Port Define.")));
  for (QLabel* label : {name_, folder_, problem_}) label->setTextFormat(Qt::PlainText);
  layout->addWidget(name_);
  layout->addWidget(folder_);
  layout->addWidget(problem_);
  layout->addSpacing(8);
  layout->addWidget(MakeTiles());
  layout->addSpacing(16);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Rack")), kLarge));
  layout->addWidget(rack_);
  layout->addWidget(rack_hint_);
  layout->addWidget(MakeLegend());
  layout->addSpacing(16);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Connection")), kLarge));
  layout->addWidget(MakeConnection());
  layout->addSpacing(16);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Check")), kLarge));
  layout->addWidget(MakeFindings());
  layout->addStretch();
  setWidget(page);
}

QWidget* OverviewPane::MakeTiles() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(12);
  layout->addWidget(MakeTile(QStringLiteral("Ports"), ports_), 1);
  layout->addWidget(MakeTile(QStringLiteral("Numbers"), numbers_), 1);
  layout->addWidget(MakeTile(QStringLiteral("Trunk ports"), trunks_), 1);
  layout->addWidget(MakeTile(QStringLiteral("Hunt groups"), groups_), 1);
  return row;
}

QWidget* OverviewPane::MakeLegend() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  for (const CardFamily family : {CardFamily::kSlic, CardFamily::kDigital, CardFamily::kTrunk,
                                  CardFamily::kEAndM, CardFamily::kE1, CardFamily::kVoiceMail}) {
    layout->addWidget(new Spot(family));
    layout->addWidget(MakeMuted(new QLabel(Words(FamilyName(family)))));
    layout->addSpacing(8);
  }
  layout->addStretch();
  layout->addWidget(
      MakeMuted(new QLabel(QStringLiteral("A filled lamp is a port with a number or in a group out"))));
  return row;
}

void OverviewPane::ShowProject() {
  const std::string& file = parts_.state.project_file;
  const std::shared_ptr<const IniText> project = parts_.store.Snapshot(file);
  const QFileInfo info(PathText(file));
  name_->setText(info.completeBaseName());
  folder_->setText(FolderText(info.absolutePath()));
  const std::string problem = WhyNoProject(parts_.store, file);
  problem_->setVisible(!problem.empty());
  problem_->setText(MessageText(problem, PageOf(parts_.settings)));

  ShowConnection(*project);
  if (std::exchange(shown_, project) == project) return;
  ShowCounts(*project);
  ShowFindings(project);
}

void OverviewPane::ShowCounts(const IniText& project) {
  const ProjectSummary summary = Summarize(project);
  rack_->ShowSummary(summary);
  rack_hint_->setVisible(summary.ports == 0);
  const QString of_all = QStringLiteral("of %1").arg(kPortRows);
  ports_.Show(summary.ports,
              summary.ports == 0
                  ? of_all
                  : QStringLiteral("%1, %2 unused").arg(of_all).arg(summary.ports - summary.ports_used));
  numbers_.Show(summary.numbers, QStringLiteral("of %1").arg(kAssignRows));
  trunks_.Show(summary.trunks, summary.groups_out == 1
                                   ? QStringLiteral("and 1 group out")
                                   : QStringLiteral("and %1 groups out").arg(summary.groups_out));
  groups_.Show(summary.hunt_groups, {});
}

}  // namespace tarvok::desktop
