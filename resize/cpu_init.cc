#include "resize/cpu_init.h"

#include "resize/cpu_features.h"
#include "resize/resize_dispatch.h"

namespace {

// The ladder of ippStaticInit: the first line whose features are all
// present, and none of whose excluded features, wins.
struct ownInitLine {
  uint64_t has;
  uint64_t lacks;
  int32_t index;
  int32_t indexLP;
  uint64_t keep;  // the mask becomes features AND keep
};

constexpr ownInitLine kInitLadder[] = {
    {kOwnAVX | kOwnAVXUsable, 0, 4, 0, 28639},
    {kOwnSSE41, 0, 3, 0, 3295},
    {kOwnMOVBE | kOwnSSSE3, 0, 2, 1, 31},
    {kOwnSSSE3, kOwnMOVBE, 2, 0, 31},
    {kOwnSSE3, 0, 1, 0, 15},
};
constexpr uint64_t kBaseKeep = 7;

// ippInitCpu: codes first..last set mask, index and second index, or, with
// index kKeep, leave them and only report the code as unsupported.
constexpr int32_t kKeep = -1;
struct ownCpuCodeLine {
  int32_t first;
  int32_t last;
  uint64_t mask;
  int32_t index;
  int32_t indexLP;
  IppStatus status;
};

constexpr ownCpuCodeLine kCpuCodes[] = {
    {0, 0, 15, 1, 0, ZRIPP_OK},
    {32, 32, 15, 1, 0, ZRIPP_OK},
    {66, 66, 15, 1, 0, ZRIPP_OK},
    {33, 34, 31, 2, 0, ZRIPP_OK},
    {67, 67, 31, 2, 0, ZRIPP_OK},
    {35, 35, 95, 3, 0, ZRIPP_OK},
    {68, 68, 95, 3, 0, ZRIPP_OK},
    {36, 36, 31, 2, 1, ZRIPP_OK},
    {37, 37, 223, 3, 0, ZRIPP_OK},
    {69, 69, 223, 3, 0, ZRIPP_OK},
    {38, 38, 3295, 3, 0, ZRIPP_OK},
    {71, 71, 3295, 3, 0, ZRIPP_OK},
    {70, 70, 4063, 4, 0, ZRIPP_OK},
    {73, 74, 4063, 4, 0, ZRIPP_OK},
    {1, 11, 0, kKeep, 0, ZRIPP_CPU_NOT_SUPPORTED},
    {64, 65, 0, kKeep, 0, ZRIPP_CPU_NOT_SUPPORTED},
    {96, 96, 0, kKeep, 0, ZRIPP_CPU_NOT_SUPPORTED},
};
constexpr int32_t kCpuCodeInit = -1;  // all ones: do what ippInit does

void ownSetVariant(int32_t index, int32_t indexLP, uint64_t mask) {
  ippJumpIndexForMergedLibs.store(index, std::memory_order_relaxed);
  ippJumpIndexForMergedLibsLP.store(indexLP, std::memory_order_relaxed);
  ownFeaturesMask.store(mask, std::memory_order_relaxed);
}

}  // namespace

IppStatus ownStaticInitFrom(bool featuresRead, uint64_t features, bool genuineIntel) {
  IppStatus status = ZRIPP_OK;
  if (!featuresRead) {
    ownSetVariant(0, 0, kBaseKeep);
    status = ZRIPP_CPU_NOT_SUPPORTED;
  } else {
    const ownInitLine* chosen = nullptr;
    for (const ownInitLine& line : kInitLadder) {
      if ((features & line.has) == line.has && (features & line.lacks) == 0) {
        chosen = &line;
        break;
      }
    }
    if (chosen != nullptr) {
      ownSetVariant(chosen->index, chosen->indexLP, features & chosen->keep);
    } else {
      ownSetVariant(0, 0, features & kBaseKeep);
      status = ZRIPP_CPU_NOT_SUPPORTED;
    }
  }
  // Another vendor runs the variant chosen above and is only told so.
  if (!genuineIntel) return ZRIPP_OTHER_VENDOR;
  return status;
}

IppStatus ownippStaticInitCpu(int32_t cpu) {
  if (cpu == kCpuCodeInit) return ippInit();
  for (const ownCpuCodeLine& line : kCpuCodes) {
    if (cpu < line.first || cpu > line.last) continue;
    if (line.index != kKeep) ownSetVariant(line.index, line.indexLP, line.mask);
    // Hosts rely on this: the unsupported codes too make the current mask
    // the processor's own.
    ownMaskIsFeatures();
    return line.status;
  }
  return ZRIPP_UNKNOWN_CPU_CODE;
}

IppStatus ippStaticInit(void) {
  uint64_t features = 0;
  const bool read = ownGetMaskFeatures(&features);
  return ownStaticInitFrom(read, features, ownIsGenuineIntel());
}

IppStatus ippInit(void) { return ippStaticInit(); }

IppStatus ippInitCpu(int32_t cpu) { return ownippStaticInitCpu(cpu); }
