#include "tests/simulation/simulated_run.h"

#include <algorithm>
#include <map>
#include <sstream>

#include "sections/registry.h"
#include "sessions/billing_files.h"
#include "sessions/compare_bytes.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/ping.h"
#include "sessions/send_alone.h"
#include "sessions/send_config.h"
#include "store/header_keys.h"
#include "tests/floors.h"
#include "tests/sections/coder_case.h"

namespace tarvok::test {
namespace {

constexpr const char* kBillingFolder = "/b";
constexpr std::string_view kArriving = "Getting ";  // begins the line about data that is arriving

/** By kind: its name, its function, and the form that it is started from. */
struct NamedSession {
  const char* name;
  bool (*tell)(Transfer&);
  TransferForm form = TransferForm::kConnect;
};
constexpr NamedSession kSessions[SimulatedRun::kKinds] = {
    {"send", SendConfiguration},
    {"compare", SendConfiguration},
    {"load", LoadConfiguration},
    {"link table", SendLinkTable},
    {"ip", SendIpAddress},
    {"mini bar", SendMiniBarList},
    {"mini bar load", LoadMiniBarList, TransferForm::kMiniBar},
    {"billing", [](Transfer& transfer) { return SendBillingFiles(transfer, kBillingFolder); },
     TransferForm::kBilling},
    {"ping", PingExchange},
};

/** A section of the example hotel as a send to that version carries it; created once per thread. */
const Bytes& HotelImage(const Section& section, int version) {
  thread_local std::map<const WireLayout*, Bytes> images;
  const WireLayout* layout = section.LayoutAt(version, Direction::kSend);
  Bytes& image = images[layout];
  if (image.empty()) image = Encoded(layout->encode, layout->size, HotelText()).bytes();
  return image;
}

/** The bench of a run; its exchange has the example hotel if the session loads. */
class Stage {
 public:
  explicit Stage(const SimulatedRun& run)
      : run_(run),
        trouble_(run.trouble),
        bench_(run.by, run.version, {.faults = FaultPlan{.error_reply = run.error_reply}, .seed = run.seed}) {
    bench_.files.Put(std::string(kBillingFolder) + "/tbl0.bil", std::string(3000, 'a'));
    bench_.view.compare = run.kind == SimulatedRun::kCompare;
    [[maybe_unused]] const Status set =
        bench_.store.SetIniValue(SessionBench::kProject, kHeaderSection,
                                 KeyName(&ConnectionSettings::compare), bench_.view.compare ? "1" : "");
    if (Loads()) FillExchange();
    bench_.wrap = [this](std::unique_ptr<Port> port) {
      return std::make_unique<TroubledPort>(
          bench_.events, std::move(port), trouble_, run_.seed, WireOf(run_.by),
          TroubledPort::Told{.wrong = [this](const std::string& wrong) { Broken(wrong); },
                             .died = [this] { ExpectWords(); }},
          outcome_.units);
    };
  }

  SimulatedOutcome Play() {
    before_ = Project();
    EventServer::TimerId cancel = 0;
    if (run_.cancel_at_ms) cancel = bench_.events.CallLater(*run_.cancel_at_ms, [this] { Cancel(); });
    if (run_.failing_call) bench_.files.fail_at = bench_.files.calls + *run_.failing_call;
    outcome_.done = Session(run_.kind);
    bench_.files.fail_at = 0;
    bench_.events.StopTimer(cancel);
    cancelled_ms_.reset();
    outcome_.simulated_ms = bench_.events.Tick_ms();
    JudgeAlways();
    if (outcome_.done && IsSend()) JudgeArrived();
    if (outcome_.done && Loads()) JudgeLoaded();
    if (run_.another_after) JudgeAnother();
    outcome_.boxes = bench_.view.boxes.size();
    for (const std::string& box : bench_.view.boxes) outcome_.log += "box: " + box + "\r\n";
    for (const std::string& advice : bench_.view.advice) outcome_.log += "advice: " + advice + "\r\n";
    outcome_.log = bench_.view.log + outcome_.log + "---- send.log ----\r\n" + bench_.send_log;
    outcome_.log += "\r\n---- refused by the exchange ----\r\n";
    for (const std::string& complaint : bench_.complaints) outcome_.log += complaint + "\r\n";
    return std::move(outcome_);
  }

  bool Session(SimulatedRun::Kind kind) {
    // The only wait without a time limit ends as with a user: after nothing has passed for longer than
    // anything can be late.
    constexpr int kPatience_ms = 600'000;
    int passed = -1;
    const auto patience = bench_.events.StartTimer(kPatience_ms, [this, &passed] {
      const bool stuck = std::exchange(passed, outcome_.units) == outcome_.units;
      if (stuck && bench_.transfer != nullptr) bench_.transfer->Abort();
    });
    const auto story = [&](Transfer& transfer) {
      running_ = ++sessions_;
      const bool told = kSessions[kind].tell(transfer);
      running_ = 0;
      JudgeCancel();
      return told;
    };
    const bool done = bench_.Run(story, kSessions[kind].form);
    bench_.events.StopTimer(patience);
    return done;
  }

  std::string Project() { return bench_.Project(); }

 private:
  void Broken(const std::string& rule) {
    if (outcome_.broken.size() < 5) outcome_.broken.push_back(rule);
  }
  bool IsSend() const { return run_.kind == SimulatedRun::kSend || run_.kind == SimulatedRun::kCompare; }
  bool Loads() const { return run_.kind == SimulatedRun::kLoad || run_.kind == SimulatedRun::kMiniBarLoad; }
  /** A flipped bit can make the exchange an older one where no check byte protects its reply; then advice says so. */
  bool ReadsBack() const {
    return run_.kind == SimulatedRun::kCompare && run_.version >= kLowestComparedVersion &&
           !Advised("Nothing is compared");
  }

  /**
   * Called when the line has just gone dead. The longest step that can be in progress or begin now is a pack
   * with its enquiries; a call waits for the modem. Only the rest of an arriving section is awaited without a
   * limit, and then there is advice.
   */
  void ExpectWords() {
    if (running_ == 0) return;
    constexpr int kPackWithEnquiries_ms = 4000 + 3 * 3000;
    constexpr int kDial_ms = 3000 + 91'000;     // preceded by the set-up of the modem
    constexpr int kSilence_ms = 15'000 + 1000;  // measured in whole seconds
    constexpr int kGrace_ms = 1000;
    const auto quiet = [this, session = running_, boxes = bench_.view.boxes.size()] {
      return running_ == session && bench_.view.boxes.size() == boxes;
    };
    const bool dials = run_.by == 2 && !bench_.transfer->line().link().is_up();
    bench_.events.CallLater((dials ? kDial_ms : kPackWithEnquiries_ms) + kGrace_ms, [this, quiet] {
      if (quiet() && !Arriving()) Broken("a dead line that nobody is told of");
    });
    bench_.events.CallLater(kSilence_ms + kGrace_ms, [this, quiet] {
      if (quiet() && Arriving() && bench_.view.advice.empty()) Broken("a dead line without advice");
    });
  }
  bool Arriving() const {
    const std::string& log = bench_.view.log;
    return log.compare(log.rfind('\n') + 1, kArriving.size(), kArriving) == 0;
  }

  void Cancel() {
    if (running_ == 0) return;
    cancelled_ms_ = bench_.events.Tick_ms();
    boxes_at_cancel_ = bench_.view.boxes.size();
    bench_.transfer->Abort();
  }
  /** Called when the session has just ended. */
  void JudgeCancel() {
    constexpr int kAtOnce_ms = 200;
    if (!cancelled_ms_) return;
    const std::int64_t took_ms = bench_.events.Tick_ms() - *cancelled_ms_;
    if (took_ms > kAtOnce_ms) Broken("a cancel took " + std::to_string(took_ms) + " ms");
    if (bench_.view.boxes.size() != boxes_at_cancel_)
      Broken("a cancelled session said " + bench_.view.boxes.back());
  }

  void FillExchange() {
    for (const Section* section : SendPlan(run_.version))
      bench_.memory.sections()[section->number] = HotelImage(*section, run_.version);
    bench_.FillMiniBar();
  }

  void JudgeAlways() {
    if (bench_.events.gave_up()) Broken("a wait without an end");
    if (!(outcome_.done && Loads()) && Project() != before_) Broken("the open project changed without a yes");
    if (!outcome_.done && bench_.view.boxes.empty() && bench_.view.log.empty())
      Broken("a failure without a word");
  }

  /**
   * True for damage that cannot be detected: bytes without a check, and numbers that are not what the other
   * side sent.
   */
  bool Unseen() const {
    const Trouble& trouble = run_.trouble;
    return (trouble.flip > 0 && WireOf(run_.by) != Wire::kLink) || trouble.wrong_sequence > 0;
  }
  /** The packs of a section are numbered; the replies to them are not. */
  bool AnswersMoved() const {
    const Trouble& trouble = run_.trouble;
    return trouble.dup > 0 || trouble.reorder > 0 || trouble.echo > 0;
  }

  /** Ignores the advice about a line that fell silent for a while. */
  bool AdvisedAtItsEnd() const { return Advised("ompare"); }
  bool Advised(const std::string& words) const {
    const std::vector<std::string>& advice = bench_.view.advice;
    return std::any_of(advice.begin(), advice.end(),
                       [&](const std::string& text) { return text.find(words) != std::string::npos; });
  }

  /**
   * Done means that the exchange has what the project says. Without reading back, that cannot be promised on
   * every line: an OK that is repeated or late counts as the OK to the next pack, because it does not name
   * its pack. Then the user is advised to compare. With reading back, only a wrong section size reported by
   * the exchange goes undetected.
   */
  void JudgeArrived() {
    if (ReadsBack() ? run_.trouble.wrong_size > 0 : Unseen() || AnswersMoved()) return;
    if (!ReadsBack() && AdvisedAtItsEnd()) return;
    for (const Section* section : SendPlan(run_.version)) {
      if (bench_.memory.sections()[section->number] == HotelImage(*section, run_.version)) continue;
      Broken("done, but section " + std::to_string(section->number) + " differs at the exchange");
    }
  }

  /**
   * A completed load gives the same result as over a faultless line, or the user is advised to load again.
   */
  void JudgeLoaded() {
    if (Unseen() || run_.trouble.wrong_size > 0 || AdvisedAtItsEnd()) return;
    Stage clean({.kind = run_.kind, .by = run_.by, .version = run_.version});
    clean.Session(run_.kind);
    if (clean.Project() != Project()) Broken("a load that is done gave another project");
  }

  /** Whatever happened before, the next session over a repaired line behaves as with a fresh exchange. */
  void JudgeAnother() {
    constexpr SimulatedRun::Kind kNext = SimulatedRun::kLinkTable;
    trouble_ = {};
    if (run_.error_reply > 0) return;  // those come from the exchange, not from the line
    const std::string first_log = std::exchange(bench_.view.log, {});
    const std::vector<std::string> first_boxes = std::exchange(bench_.view.boxes, {});
    const bool done = Session(kNext);
    Stage fresh({.kind = kNext, .by = run_.by, .version = run_.version});
    const bool fresh_done = fresh.Session(kNext);
    const RecordingView& view = fresh.bench_.view;
    if (done != fresh_done || bench_.view.log != view.log || bench_.view.boxes != view.boxes)
      Broken("the next session is not as a fresh one: " + bench_.view.log);
    bench_.view.log = first_log + bench_.view.log;
    bench_.view.boxes = first_boxes;
  }

  SimulatedRun run_;
  Trouble trouble_;
  SimulatedOutcome outcome_;
  std::string before_;
  int sessions_ = 0;
  int running_ = 0;  // number of the one in progress; 0 for none
  std::optional<std::int64_t> cancelled_ms_;
  std::size_t boxes_at_cancel_ = 0;
  SessionBench bench_;
};

}  // namespace

SimulatedRun RunOf(std::uint64_t seed) {
  Chances chances(seed);
  const auto pick = [&](std::size_t count) { return static_cast<int>(chances.Pick(count)); };
  constexpr double kRates[] = {0.001, 0.01, 0.05, 0.2};
  const auto rate = [&](std::size_t one_in) {
    const double rate_of_it = kRates[pick(4)];
    return pick(one_in) == 0 ? rate_of_it : 0;
  };
  SimulatedRun run;
  run.seed = seed;
  run.kind = static_cast<SimulatedRun::Kind>(pick(SimulatedRun::kKinds));
  run.by = pick(5);
  run.version = pick(2) == 0 ? kHighestVersion : kLowestVersion + pick(11);
  Trouble& trouble = run.trouble;
  trouble.drop = rate(4);
  trouble.flip = rate(4);
  trouble.dup = rate(4);
  trouble.late = rate(4);
  constexpr int kDelays_ms[] = {5, 50, 900, 2500, 5000, 20'000, 60'000};
  trouble.late_ms = kDelays_ms[pick(7)];
  const bool network = run.by == 0 || run.by >= 3;
  const double reorder = rate(6);
  trouble.reorder = network ? reorder : 0;
  trouble.wrong_sequence = rate(8);
  trouble.wrong_size = rate(8);
  trouble.wrong_section = rate(8);
  trouble.stranger = rate(6);
  const int units = pick(2000);
  if (pick(8) == 0) trouble.silent_after = units;
  if (pick(8) == 0) trouble.hangup_after = units;
  run.error_reply = rate(6) / 2;
  run.another_after = pick(4) == 0;
  constexpr std::size_t kMoments_ms[] = {20, 200, 2000, 20'000, 200'000};
  const int moment_ms = pick(kMoments_ms[pick(5)]);
  if (pick(8) == 0) run.cancel_at_ms = moment_ms;
  constexpr std::size_t kCalls[] = {12, 400};
  const int call = 1 + pick(kCalls[pick(2)]);
  if (pick(8) == 0) run.failing_call = call;
  const double cut = rate(8);
  trouble.cut = WireOf(run.by) == Wire::kLink ? cut : 0;
  trouble.echo = rate(8);
  trouble.torn = rate(8);
  return run;
}

std::string Described(const SimulatedRun& run) {
  const Trouble& trouble = run.trouble;
  std::ostringstream text;
  text << "seed " << run.seed << ": " << kSessions[run.kind].name << " by " << run.by << " version "
       << run.version;
  const std::pair<const char*, double> chances[] = {{"drop", trouble.drop},
                                                    {"flip", trouble.flip},
                                                    {"cut", trouble.cut},
                                                    {"dup", trouble.dup},
                                                    {"reorder", trouble.reorder},
                                                    {"late", trouble.late},
                                                    {"echo", trouble.echo},
                                                    {"torn", trouble.torn},
                                                    {"wrong-sequence", trouble.wrong_sequence},
                                                    {"wrong-size", trouble.wrong_size},
                                                    {"wrong-section", trouble.wrong_section},
                                                    {"stranger", trouble.stranger},
                                                    {"error-reply", run.error_reply}};
  for (const auto& [name, chance] : chances) {
    if (chance > 0) text << ' ' << name << '=' << chance;
  }
  if (trouble.late > 0) text << " late-ms=" << trouble.late_ms;
  if (trouble.lost) text << " lost=" << *trouble.lost;
  if (trouble.silent_after) text << " silent-after=" << *trouble.silent_after;
  if (trouble.hangup_after) text << " hangup-after=" << *trouble.hangup_after;
  if (run.cancel_at_ms) text << " cancel-at-ms=" << *run.cancel_at_ms;
  if (run.failing_call) text << " failing-call=" << *run.failing_call;
  return text.str();
}

SimulatedOutcome Simulate(const SimulatedRun& run) {
  return Stage(run).Play();
}

}  // namespace tarvok::test
