// Test memory with guard bytes on both sides, so that any write outside the
// bytes a call may touch is caught.
#ifndef ZR_TESTS_GUARDED_BUFFER_H
#define ZR_TESTS_GUARDED_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace zr::test {

class GuardedBuffer {
 public:
  static constexpr size_t kGuard = 64;
  static constexpr uint8_t kGuardByte = 0xA5;

  // `misalign` shifts the usable bytes off 16-byte alignment; the base is
  // kept 16-byte aligned so that it means what it says.
  explicit GuardedBuffer(size_t size, size_t misalign = 0)
      : size_(size), storage_(size + 2 * kGuard + misalign + 16, kGuardByte) {
    offset_ = kGuard + misalign + (16 - reinterpret_cast<uintptr_t>(storage_.data()) % 16) % 16;
  }

  uint8_t* data() { return storage_.data() + offset_; }
  const uint8_t* data() const { return storage_.data() + offset_; }
  size_t size() const { return size_; }
  uint8_t& operator[](size_t i) { return data()[i]; }

  // True when no byte before or after the usable block has changed.
  bool GuardsIntact() const {
    const auto guard = [](uint8_t b) { return b == kGuardByte; };
    return std::all_of(storage_.begin(), storage_.begin() + offset_, guard) &&
           std::all_of(storage_.begin() + offset_ + size_, storage_.end(), guard);
  }

 private:
  size_t size_;
  size_t offset_;
  std::vector<uint8_t> storage_;
};

}  // namespace zr::test

#endif
