#include "counted_news.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t> news = 0;

}  // namespace

void* operator new(std::size_t size) {
  news.fetch_add(1, std::memory_order_relaxed);
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace tarvok::bench {

std::int64_t NewsSoFar() {
  return news.load(std::memory_order_relaxed);
}

}  // namespace tarvok::bench
