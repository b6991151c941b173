// The command-line tool: scripts, backups and support work with the same code as the desktop program.

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>
#include <QCoreApplication>

#include "frame/main_frame.h"
#include "platform/posix_file_system.h"
#include "programs/ctl/edit_command.h"
#include "programs/ctl/exit_status.h"
#include "programs/ctl/image_commands.h"
#include "programs/ctl/places.h"
#include "programs/ctl/project_commands.h"
#include "programs/ctl/session_commands.h"
#include "programs/given_text.h"
#include "programs/uses.h"
#include "sections/registry.h"

namespace tarvok::ctl {
namespace {

/** The parsed command line; each command reads its own part. */
struct Arguments {
  std::string project;
  std::string other;  // the second file or folder
  std::string section_name;
  std::string key;
  std::string value;
  std::string form;
  std::string script;
  int section = 0;
  int version = kHighestVersion;
  bool all = false;
  bool force = false;
  const SendPart* part = nullptr;  // sent alone
  bool mini_bar = false;
  bool show_secrets = false;
  SessionOptions session;
};

/** Adds an option or argument that requires a text. */
CLI::Option* AddText(CLI::App* command, const char* name, std::string& text, const char* description) {
  return command->add_option(name, text, description)->check(IsGiven);
}

/** Accepts decimal numbers only, not hexadecimal or octal ones. */
std::string IsDecimal(const std::string& text) {
  const bool decimal = text.find_first_not_of("0123456789") == std::string::npos;
  return decimal ? std::string() : text + " is not a whole number";
}

/** "Tarvok Setup" and the version, as in the window's title. */
std::string NameAndVersion() {
  constexpr std::string_view kFrame = " -=";
  const std::size_t first = kFrameTitle.find_first_not_of(kFrame);
  return std::string(kFrameTitle.substr(first, kFrameTitle.find_last_not_of(kFrame) + 1 - first));
}

class CommandLine {
 public:
  CommandLine(int& argc, char** argv) : argc_(argc), argv_(argv), store_(files_) {
    app_.require_subcommand(1);
    app_.failure_message(CLI::FailureMessage::simple);
    app_.set_version_flag("--version", [this] {
      const QCoreApplication application(argc_, argv_);
      return NameAndVersion() + "\n" + SystemFileLine();
    });
    app_.footer(
        "Exit status: 0 done, 1 the operation failed (the reason on standard error), 2 the command line is "
        "wrong.\n"
        "The reason is a single line. Advice comes before it, on lines that begin with \"note:\".\n"
        "The password is read from TARVOK_PASSWORD or --password-file, or asked for on the terminal.");
    AddProjectCommands();
    AddImageCommands();
    AddSessionCommands();
  }

  int Run() {
    try {
      app_.parse(argc_, argv_);
    } catch (const CLI::ParseError& error) {
      const std::vector<std::string> words = app_.remaining();
      if (error.get_exit_code() != 0 && app_.get_subcommands().empty() && !words.empty()) {
        const std::string_view kind = words.front().starts_with('-') ? "option" : "command";
        return Misused(std::string("there is no ").append(kind) + " \"" + words.front() +
                       "\"; --help lists them");
      }
      return app_.exit(error) == 0 ? kDone : kWrongCommandLine;
    }
    return run_();
  }

 private:
  CLI::App* Command(const char* name, const char* description, std::function<int()> run) {
    CLI::App* command = app_.add_subcommand(name, description);
    command->callback([this, run = std::move(run)] { run_ = run; });
    return command;
  }

  void TakeVersion(CLI::App* command) {
    command->add_option("--version", arguments_.version, "exchange version, 100 to 110")
        ->required()
        ->check(IsDecimal)
        ->check(CLI::Range(kLowestVersion, kHighestVersion));
  }

  void TakeSectionOrAll(CLI::App* command) {
    CLI::Option* section = command->add_option("--section", arguments_.section, "section number")
                               ->check(IsDecimal)
                               ->check(CLI::Range(1, kBarEnd));
    CLI::Option* all = command->add_flag("--all", arguments_.all, "every section of the version");
    section->excludes(all);
    TakeVersion(command);
  }

  void AddProjectCommands() {
    CLI::App* make = Command("new", "create a project from the system file", [this] {
      const QCoreApplication application(argc_, argv_);
      return New(store_, SystemFile(), arguments_.project, arguments_.force);
    });
    AddText(make, "PROJECT", arguments_.project, "project file to create")->required();
    make->add_flag("--force", arguments_.force, "replace an existing file");

    CLI::App* check = Command("check", "report invalid values and dangling references",
                              [this] { return Check(store_, arguments_.project); });
    AddText(check, "PROJECT", arguments_.project, "project file")->required();

    CLI::App* diff = Command("diff", "show the differences between two projects", [this] {
      return Diff(store_, arguments_.project, arguments_.other, arguments_.show_secrets);
    });
    AddText(diff, "A", arguments_.project, "project file")->required();
    AddText(diff, "B", arguments_.other, "project file to compare it with")->required();
    diff->add_flag("--show-secrets", arguments_.show_secrets,
                   "show passwords instead of only that they changed");
    diff->footer("Exit status: 0 same, 1 different, 2 not comparable.");

    CLI::App* edit = Command("edit", "operate an editor with keys and clicks, without a window", [this] {
      const QCoreApplication application(argc_, argv_);
      return Edit(store_, SystemFile(), arguments_.project, arguments_.form, arguments_.script);
    });
    AddText(edit, "PROJECT", arguments_.project, "project file")->required();
    AddText(edit, "FORM", arguments_.form, "name of the editor's form, such as frmAccount")->required();
    AddText(edit, "--script", arguments_.script, "commands, one per line (default: standard input)");
    edit->footer(EditHelp());

    CLI::App* get = Command("get", "print a value, or KEY=VALUE lines of a section", [this] {
      return Get(store_, arguments_.project, arguments_.section_name, arguments_.key);
    });
    AddText(get, "PROJECT", arguments_.project, "project file")->required();
    AddText(get, "SECTION", arguments_.section_name, "section name")->required();
    AddText(get, "KEY", arguments_.key, "key name (default: the whole section)");

    CLI::App* set = Command("set", "write one key", [this] {
      return Set(store_, arguments_.project, arguments_.section_name, arguments_.key, arguments_.value);
    });
    AddText(set, "PROJECT", arguments_.project, "project file")->required();
    AddText(set, "SECTION", arguments_.section_name, "section name")->required();
    AddText(set, "KEY", arguments_.key, "key name")->required();
    set->add_option("VALUE", arguments_.value, "new value; \"\" writes an empty key")->required();

    TakeVersion(Command("sections", "list what is sent and loaded, by exchange version",
                        [this] { return ListSections(arguments_.version); }));
  }

  void AddImageCommands() {
    CLI::App* encode = Command("encode", "write the wire images of a project", [this] {
      if (arguments_.all) return EncodeAll(store_, arguments_.project, arguments_.version, arguments_.other);
      if (arguments_.section == 0) return Misused("--section or --all is required");
      return Encode(store_, arguments_.project, arguments_.section, arguments_.version, arguments_.other);
    });
    AddText(encode, "PROJECT", arguments_.project, "project file")->required();
    AddText(encode, "-o", arguments_.other, "file to write, or with --all the folder for NN.bin")->required();
    TakeSectionOrAll(encode);

    CLI::App* decode = Command("decode", "decode wire images into a project as a load does", [this] {
      if (arguments_.all) return DecodeAll(store_, arguments_.other, arguments_.version, arguments_.project);
      if (arguments_.section == 0) return Misused("--section or --all is required");
      return Decode(store_, arguments_.other, arguments_.section, arguments_.version, arguments_.project);
    });
    AddText(decode, "IMAGE", arguments_.other, "image file, or with --all the folder of NN.bin")->required();
    AddText(decode, "--into", arguments_.project, "project file; created if missing")->required();
    TakeSectionOrAll(decode);
  }

  void TakeSessionOptions(CLI::App* command) {
    SessionOptions& session = arguments_.session;
    AddText(command, "--password-file", session.password_file, "file whose first line is the password");
    AddText(command, "--log", session.log_file, "history of the session (default: send.log)");
    AddText(command, "--device", session.device, "serial device to use instead of those in the settings");
    command->add_flag("--trace", session.trace, "also log every byte and frame");
  }

  /** Adds a command that needs Qt's loop. */
  CLI::App* SessionCommand(const char* name, const char* description, std::function<int()> run) {
    CLI::App* command = Command(name, description, [this, run = std::move(run)] {
      const QCoreApplication application(argc_, argv_);
      return run();
    });
    TakeSessionOptions(command);
    return command;
  }

  void AddSend() {
    CLI::App* send = SessionCommand(
        "send", "send the whole configuration, or a part, to the exchange",
        [this] { return Send(store_, arguments_.project, arguments_.part, arguments_.session); });
    AddText(send, "PROJECT", arguments_.project, "project file; its connection settings are used")
        ->required();
    // At most one of them. A CLI11 option group would say so in one line, but its parser loops forever on a
    // surplus empty argument.
    std::vector<CLI::Option*> parts;
    for (const SendPart& part : kSendParts) {
      parts.push_back(send->add_flag_callback(
          part.option, [this, &part] { arguments_.part = &part; }, part.about));
    }
    parts.push_back(send->add_flag("--compare", arguments_.session.compare,
                                   "read each section back and compare its bytes (from 1.09)"));
    for (CLI::Option* part : parts) {
      for (CLI::Option* other : parts) {
        if (part != other) part->excludes(other);
      }
    }
  }

  void AddSessionCommands() {
    AddSend();
    CLI::App* load = SessionCommand("load", "read the exchange into a project", [this] {
      return Load(store_, arguments_.other, arguments_.project, arguments_.mini_bar, arguments_.force,
                  arguments_.session);
    });
    AddText(load, "OUT", arguments_.other, "project file to create")->required();
    AddText(load, "--using", arguments_.project, "project whose connection settings are used")->required();
    load->add_flag("--minibar", arguments_.mini_bar,
                   "only the mini bar list, into a copy of the --using project");
    load->add_flag("--force", arguments_.force, "replace an existing file");

    CLI::App* billing = SessionCommand(
        "send-billing", "send the billing tables tbl*.bil of a folder",
        [this] { return SendBilling(store_, arguments_.project, arguments_.other, arguments_.session); });
    AddText(billing, "PROJECT", arguments_.project, "project whose connection settings are used")->required();
    AddText(billing, "FOLDER", arguments_.other, "folder with the tables")->required();

    CLI::App* ping = SessionCommand("ping", "check that the exchange responds",
                                    [this] { return Ping(store_, arguments_.project, arguments_.session); });
    AddText(ping, "PROJECT", arguments_.project, "project whose connection settings are used")->required();
  }

  int& argc_;
  char** argv_;
  CLI::App app_{"Sets up a telephone exchange from the command line.", "tarvokctl"};
  PosixFileSystem files_;
  ProjectStore store_;
  Arguments arguments_;
  std::function<int()> run_;
};

}  // namespace
}  // namespace tarvok::ctl

int main(int argc, char** argv) {
  tarvok::ctl::CommandLine command_line(argc, argv);
  return tarvok::ctl::EndOutput(command_line.Run());
}
