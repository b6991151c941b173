#include "counted_news.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/floors.h"

namespace {

std::atomic<std::int64_t> news = 0;
std::atomic<std::int64_t> bytes = 0;

void* Counted(std::size_t size, void* memory) {
  news.fetch_add(1, std::memory_order_relaxed);
  bytes.fetch_add(static_cast<std::int64_t>(size), std::memory_order_relaxed);
  return memory != nullptr ? memory : throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return Counted(size, std::malloc(size == 0 ? 1 : size));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto multiple = static_cast<std::size_t>(alignment);
  return Counted(size, std::aligned_alloc(multiple, (size + multiple) / multiple * multiple));
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  std::free(memory);
}

namespace tarvok::bench {

std::int64_t NewsSoFar() {
  return news.load(std::memory_order_relaxed);
}

std::int64_t BytesSoFar() {
  return bytes.load(std::memory_order_relaxed);
}

}  // namespace tarvok::bench
