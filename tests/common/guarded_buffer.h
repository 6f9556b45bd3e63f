// Test memory with guard bytes on both sides, so that any write outside the
// bytes a call may touch is caught.
#ifndef ZR_TESTS_GUARDED_BUFFER_H
#define ZR_TESTS_GUARDED_BUFFER_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace zr::test {

class GuardedBuffer {
 public:
  static constexpr size_t kGuard = 64;
  static constexpr uint8_t kGuardByte = 0xA5;

  // `misalign` shifts the usable bytes off 16-byte alignment.
  explicit GuardedBuffer(size_t size, size_t misalign = 0)
      : size_(size), offset_(kGuard + misalign), storage_(size + 2 * kGuard + misalign + 16) {
    // Keep the base 16-byte aligned so that `misalign` means what it says.
    const auto base = reinterpret_cast<uintptr_t>(storage_.data());
    offset_ += (16 - base % 16) % 16;
    std::memset(storage_.data(), kGuardByte, storage_.size());
  }

  uint8_t* data() { return storage_.data() + offset_; }
  const uint8_t* data() const { return storage_.data() + offset_; }
  size_t size() const { return size_; }
  uint8_t& operator[](size_t i) { return data()[i]; }

  // True when no byte before or after the usable block has changed.
  bool GuardsIntact() const {
    for (size_t i = 0; i < offset_; ++i)
      if (storage_[i] != kGuardByte) return false;
    for (size_t i = offset_ + size_; i < storage_.size(); ++i)
      if (storage_[i] != kGuardByte) return false;
    return true;
  }

 private:
  size_t size_;
  size_t offset_;
  std::vector<uint8_t> storage_;
};

}  // namespace zr::test

#endif
