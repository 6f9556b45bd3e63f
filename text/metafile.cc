// The metafile family of ZrDraw: opens a 16-bit metafile, reads its headers
// into the caller's storage and holds the descriptor in mEmfFile. Records are
// never played.
#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstring>

#include "zrdrawobject.h"

namespace {

constexpr unsigned char kPlaceableKey = 0xD7;
constexpr size_t kPlaceableBytes = 22;
constexpr size_t kMetaHeaderBytes = 18;
constexpr size_t kCheckWordAt = 20;

// The reads of this family do not look at their results: a short or failed
// read leaves the storage as it was.
void ReadUnchecked(int fd, void* to, size_t bytes) {
  if (read(fd, to, bytes) < 0) return;
}

// The machine's fault on an address that is not mapped, raised on purpose so
// that the access itself is never made.
void FaultOnAddress() { std::raise(SIGSEGV); }

// XOR of the 16-bit words from `start` up to, not including, `end`; 0 when
// `end` is not beyond `start`. The stretch can run through memory that no
// object of ours spans, so it is read through the kernel, which reports an
// unmapped page instead of faulting on it.
enum class Walk { kDone, kUnmapped, kNoPipe };
Walk XorWords(uintptr_t start, uintptr_t end, uint16_t& value) {
  value = 0;
  if (end <= start) return Walk::kDone;
  // Each piece goes through a pipe: write() copies it out of our memory and
  // fails or stops short on an unmapped page, as user-mode emulators also do.
  int pipeEnds[2];
  if (pipe(pipeEnds) != 0) return Walk::kNoPipe;
  uint64_t left = (end - start + 1) / 2 * 2;
  uintptr_t at = start;
  unsigned char chunk[PIPE_BUF];
  bool mapped = true;
  while (left != 0 && mapped) {
    const size_t bytes = left < sizeof chunk ? static_cast<size_t>(left) : sizeof chunk;
    mapped = write(pipeEnds[1], reinterpret_cast<const void*>(at), bytes) == static_cast<ssize_t>(bytes) &&
             read(pipeEnds[0], chunk, bytes) == static_cast<ssize_t>(bytes);
    for (size_t i = 0; mapped && i < bytes; i += 2) {
      uint16_t word;
      std::memcpy(&word, chunk + i, 2);
      value ^= word;
    }
    at += bytes;
    left -= bytes;
  }
  close(pipeEnds[0]);
  close(pipeEnds[1]);
  return mapped ? Walk::kDone : Walk::kUnmapped;
}

}  // namespace

// The check walks from the member that holds the header pointer, not from the
// header, up to the header's check word, so a file with the usual check value
// normally fails it. Hosts rely on this; keep it.
int ZrDraw::EMFOpen(const char* path) {
  EMFClose();
  mEmfFile = open(path, O_RDONLY);
  if (mEmfFile == -1) return -1;
  unsigned char first = 0;
  ReadUnchecked(mEmfFile, &first, 1);
  off_t metaHeaderAt = 0;
  if (first == kPlaceableKey) {
    lseek(mEmfFile, 0, SEEK_SET);
    ReadUnchecked(mEmfFile, mpPlaceableHeader, kPlaceableBytes);
    uint16_t value = 0;
    const uintptr_t header = reinterpret_cast<uintptr_t>(mpPlaceableHeader);
    const Walk walk =
        header == 0 ? Walk::kUnmapped
                    : XorWords(reinterpret_cast<uintptr_t>(&mpPlaceableHeader), header + kCheckWordAt, value);
    // Without a pipe to read through, the check cannot be made: it fails.
    if (walk == Walk::kNoPipe) return -1;
    if (walk == Walk::kUnmapped) {
      FaultOnAddress();
      return -1;
    }
    uint16_t check;
    std::memcpy(&check, static_cast<const unsigned char*>(mpPlaceableHeader) + kCheckWordAt, 2);
    if (value != check) return -1;
    metaHeaderAt = kPlaceableBytes;
  }
  lseek(mEmfFile, metaHeaderAt, SEEK_SET);
  ReadUnchecked(mEmfFile, mpMetaHeader, kMetaHeaderBytes);
  return 0;
}

// Right and Bottom of the placeable header, not the differences with Left and
// Top; the storage must be set, whether or not a file is open.
int ZrDraw::EMFGetSize(int& width, int& height) {
  if (!mpPlaceableHeader) {
    FaultOnAddress();
    return 0;
  }
  int16_t right;
  int16_t bottom;
  std::memcpy(&right, static_cast<const unsigned char*>(mpPlaceableHeader) + 10, 2);
  std::memcpy(&bottom, static_cast<const unsigned char*>(mpPlaceableHeader) + 12, 2);
  width = right;
  height = bottom;
  return 0;
}

// Descriptor 0 counts as no file. A failed open leaves -1, which is closed
// here in vain and then cleared.
int ZrDraw::EMFClose() {
  if (mEmfFile != 0) {
    close(mEmfFile);
    mEmfFile = 0;
  }
  return 0;
}
