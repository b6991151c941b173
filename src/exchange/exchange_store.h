#pragma once

#include <set>
#include <string>
#include <utility>

#include "exchange/exchange_memory.h"
#include "exchange/message_end.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "store/file_system.h"
#include "store/status.h"

namespace tarvok::exchange {

/**
 * The exchange's memory on disk, in a folder: NN.bin for each section that came, minibar.bin, billing/N.bin
 * for table N, and the texts mode (a number), clock (six bytes in hexadecimal) and passwords. Each change is
 * written whole, shortly after it, so that a burst of changes is one write a file; Flush writes what is left.
 */
class ExchangeStore {
 public:
  /** `folder` and its folder "billing" must exist. */
  ExchangeStore(EventServer& events, FileSystem& files, std::string folder, ExchangeMemory& memory,
                Complain complain);
  ~ExchangeStore();
  ExchangeStore(const ExchangeStore&) = delete;
  ExchangeStore& operator=(const ExchangeStore&) = delete;

  /** Reads what is there into the memory. A file that does not fit the memory's version is an error. */
  Status Load();
  /** Writes what has changed, and the parts that have a file at any time; the first error is the result. */
  Status Flush();

 private:
  std::string PathOf(MemoryPart part) const;
  std::string BytesOf(MemoryPart part) const;
  Status LoadPart(MemoryPart part);
  std::string Take(MemoryPart part, const std::string& bytes);
  void OnChange(MemoryPart part);
  Status WriteChanged();

  EventServer& events_;
  FileSystem& files_;
  std::string folder_;
  ExchangeMemory& memory_;
  Complain complain_;
  std::set<MemoryPart> changed_;
  EventServer::TimerId write_timer_ = 0;
};

}  // namespace tarvok::exchange
