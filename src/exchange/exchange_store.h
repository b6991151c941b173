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
 * Stores the exchange's memory in a folder: NN.bin for each section received, minibar.bin, billing/N.bin for
 * table N, and the texts mode (a number), clock (six bytes in hexadecimal) and passwords. Files are written
 * as a whole, with a short delay, so that a burst of changes writes each file once; Flush writes what is
 * pending.
 */
class ExchangeStore {
 public:
  /** `folder` and its subfolder "billing" must exist. */
  ExchangeStore(EventServer& events, FileSystem& files, std::string folder, ExchangeMemory& memory,
                Complain complain);
  ~ExchangeStore();
  ExchangeStore(const ExchangeStore&) = delete;
  ExchangeStore& operator=(const ExchangeStore&) = delete;

  /** Reads the existing files into the memory. A file that does not fit the memory's version is an error. */
  Status Load();
  /** Writes all changes, and the parts that always have a file. Returns the first error. */
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
