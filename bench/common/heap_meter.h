// The heap bytes live in this process. The bench binary puts its own malloc
// and kin (calloc, realloc, free, aligned_alloc, posix_memalign, memalign,
// valloc, pvalloc) in front of the C library's, so every block that the
// library, operator new or a peer library takes from the heap is counted.
// Thread stacks and other direct mappings are not heap and are not counted.
#ifndef ZR_BENCH_HEAP_METER_H
#define ZR_BENCH_HEAP_METER_H

#include <cstddef>
#include <cstdint>

namespace zr::bench {

// The high-water mark of live heap bytes from its construction on, less the
// bytes live at that time. One at a time: each restarts the mark.
class HeapPeak {
 public:
  HeapPeak();
  size_t Bytes() const;

 private:
  int64_t start_;
};

}  // namespace zr::bench

#endif
