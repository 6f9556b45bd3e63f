// Library memory that an adapter call shares with the driver's workers. The
// driver stops waiting after 100 ms; a worker that is still running then goes
// on writing into the adapter's planes, so the block is freed by whichever of
// the adapter and the workers lets go last, never under a running worker.
#ifndef ZR_FX_SHARED_SCRATCH_H
#define ZR_FX_SHARED_SCRATCH_H

#include <atomic>
#include <cstddef>

namespace zr::fx {

class SharedScratch {
 public:
  // Takes over `block`, `bytes` long, from ZrAlloc. The count lives in the
  // block's last bytes, which the planes never reach, so that sharing needs
  // no allocation of its own. The caller holds the first reference.
  static SharedScratch* Adopt(void* block, size_t bytes);

  void AddRef();
  // The last reference frees the block with ZrFree.
  void Release();

 private:
  explicit SharedScratch(void* block) : mBlock(block) {}

  std::atomic<int> mRefs{1};
  void* mBlock;
};

}  // namespace zr::fx

#endif
