#include "tests/end_to_end/stopped_process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <elf.h>
#include <fcntl.h>
#include <iterator>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/floors.h"

namespace tarvok::test {
namespace {

constexpr std::uint64_t kChanging[] = {
    SYS_pwrite64,  SYS_ftruncate, SYS_fsync,     SYS_fchmod,   SYS_flock,
    SYS_fallocate, SYS_renameat,  SYS_renameat2, SYS_unlinkat,
#ifdef SYS_rename
    SYS_rename,    SYS_unlink,
#endif
};
constexpr std::uint64_t kNaming[] = {
    SYS_openat, SYS_read, SYS_fstat, SYS_newfstatat, SYS_faccessat, SYS_readlinkat, SYS_close,
#ifdef SYS_open
    SYS_open,   SYS_stat, SYS_lstat, SYS_access,     SYS_readlink,
#endif
};

template <typename Numbers>
bool Has(const Numbers& numbers, std::uint64_t number) {
  return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

bool Counts(Calls calls, std::uint64_t number) {
  if (calls == Calls::kAll) return number != SYS_exit_group;  // after it there is nothing left to stop
  return Has(kChanging, number) || (calls == Calls::kOfFiles && Has(kNaming, number));
}

bool CreatesFile(const __ptrace_syscall_info& info) {
  return info.entry.nr == SYS_openat && (info.entry.args[2] & O_CREAT) != 0;
}

/** A traced process, from its start to its end. */
class Watched {
 public:
  Watched(pid_t pid, const Stop& stop) : pid_(pid), stop_(stop) {}

  Ended Watch() {
    int status = 0;
    int signal_to_give = 0;
    while (true) {
      if (::ptrace(PTRACE_SYSCALL, pid_, nullptr, signal_to_give) != 0 && errno != ESRCH) return ended_;
      ::waitpid(pid_, &status, 0);
      signal_to_give = 0;
      if (WIFEXITED(status)) ended_.status = WEXITSTATUS(status);
      if (WIFEXITED(status) || WIFSIGNALED(status)) return ended_;
      if (WSTOPSIG(status) == (SIGTRAP | 0x80)) {
        AtCall();
      } else if (WSTOPSIG(status) != SIGTRAP) {
        signal_to_give = WSTOPSIG(status);
      }
    }
  }

 private:
  void AtCall() {
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, pid_, sizeof info, &info);
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
      AtEntry(info);
    } else {
      AtExit();
    }
  }

  void AtEntry(const __ptrace_syscall_info& info) {
    if (stop_.no_new_files && CreatesFile(info)) {
      Refuse(EACCES);
      return;
    }
    if (!Counts(stop_.calls, info.entry.nr)) return;
    ++ended_.calls;
    const bool now = ended_.calls == stop_.call;
    const bool later = stop_.fate == Fate::kFailsForGood && ended_.calls > stop_.call;
    if (!now && !later) return;
    if (stop_.fate == Fate::kFails || stop_.fate == Fate::kFailsForGood) {
      Refuse(stop_.error);
    } else if (stop_.fate == Fate::kKilledBefore) {
      ::kill(pid_, SIGKILL);
    } else {
      const bool writes = info.entry.nr == SYS_pwrite64 || info.entry.nr == SYS_write;
      if (stop_.fate == Fate::kKilledHalfway && writes) ShortenWrite(info.entry.args[2] / 2);
      kill_at_exit_ = true;
    }
  }

  void AtExit() {
    if (kill_at_exit_) ::kill(pid_, SIGKILL);
    if (refused_with_ == 0) return;
    ChangeRegisters([&](user_regs_struct& registers) {
#ifdef __x86_64__
      registers.rax = static_cast<unsigned long long>(-refused_with_);
#else
      registers.regs[0] = static_cast<unsigned long long>(-refused_with_);
#endif
    });
    refused_with_ = 0;
  }

  /** Turns the call into one that does not exist; sets the error when it returns. */
  void Refuse(int error) {
    refused_with_ = error;
#ifdef __x86_64__
    ChangeRegisters([](user_regs_struct& registers) { registers.orig_rax = ~0ULL; });
#else
    int none = -1;
    iovec value{&none, sizeof none};
    ::ptrace(PTRACE_SETREGSET, pid_, NT_ARM_SYSTEM_CALL, &value);
#endif
  }

  void ShortenWrite(std::uint64_t bytes) {
    ChangeRegisters([&](user_regs_struct& registers) {
#ifdef __x86_64__
      registers.rdx = bytes;
#else
      registers.regs[2] = bytes;
#endif
    });
  }

  template <typename Change>
  void ChangeRegisters(Change&& change) {
    user_regs_struct registers{};
    iovec value{&registers, sizeof registers};
    ::ptrace(PTRACE_GETREGSET, pid_, NT_PRSTATUS, &value);
    change(registers);
    ::ptrace(PTRACE_SETREGSET, pid_, NT_PRSTATUS, &value);
  }

  pid_t pid_;
  Stop stop_;
  Ended ended_;
  bool kill_at_exit_ = false;
  int refused_with_ = 0;
};

}  // namespace

std::string Told(const Stop& stop) {
  return "fate " + std::to_string(static_cast<int>(stop.fate)) + " at call " + std::to_string(stop.call) +
         ", error " + std::to_string(stop.error);
}

std::optional<Ended> RunStopped(const std::function<int()>& work, const Stop& stop) {
  constexpr int kNotAllowed = 77;
  const pid_t pid = ::fork();
  if (pid < 0) return std::nullopt;
  if (pid == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(kNotAllowed);
    ::raise(SIGSTOP);
    ::_exit(work());
  }
  int status = 0;
  ::waitpid(pid, &status, 0);
  if (!WIFSTOPPED(status)) return std::nullopt;
  if (::ptrace(PTRACE_SETOPTIONS, pid, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) {
    ::kill(pid, SIGKILL);
    ::waitpid(pid, &status, 0);
    return std::nullopt;
  }
  return Watched(pid, stop).Watch();
}

}  // namespace tarvok::test
