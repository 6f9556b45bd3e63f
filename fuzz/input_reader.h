// Reads the fields of a fuzzing input in order. Past the end of the input
// every field reads as zero, so a short input is still a complete call.
#ifndef ZRDRAW_FUZZ_INPUT_READER_H
#define ZRDRAW_FUZZ_INPUT_READER_H

#include <cstddef>
#include <cstdint>
#include <cstring>

class InputReader {
 public:
  InputReader(const uint8_t* data, size_t size) : data_(data), size_(size) {}

  template <typename T>
  T Take() {
    T value{};
    const size_t n = size_ - pos_ < sizeof(T) ? size_ - pos_ : sizeof(T);
    if (n > 0) std::memcpy(&value, data_ + pos_, n);
    pos_ += n;
    return value;
  }
  uint32_t U32() { return Take<uint32_t>(); }
  uint16_t U16() { return Take<uint16_t>(); }
  uint8_t U8() { return Take<uint8_t>(); }
  // A value from 0 to limit, inclusive.
  uint32_t Below(uint32_t limit) { return limit == UINT32_MAX ? U32() : U32() % (limit + 1); }

 private:
  const uint8_t* data_;
  size_t size_;
  size_t pos_ = 0;
};

#endif
