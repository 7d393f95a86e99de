#pragma once

#include <sys/mman.h>

#include <new>
#include <stdexcept>
#include <utility>

namespace vorlent {

/// A T that this process and its forks see together.
template <class T>
class SharedMemory {
 public:
  SharedMemory() {
    void* memory =
        mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
    value_ = new (memory) T();
  }
  ~SharedMemory() { munmap(value_, sizeof(T)); }
  SharedMemory(const SharedMemory&) = delete;
  SharedMemory& operator=(const SharedMemory&) = delete;

  T& operator*() const { return *value_; }
  T* operator->() const { return value_; }

 private:
  T* value_ = nullptr;
};

}  // namespace vorlent
