/* The video mux: two RGBA frames of one geometry combined into a third in
   one of the modes of a flag word, with an optional grid overlay; and
   weigh_plane, the 16.16 fixed-point mix of one byte plane into another. */
#ifndef ZRMUX_H
#define ZRMUX_H

#include <stdint.h>

#include "zrdraw_export.h"

/* Modes: bits 0 to 23 of muxFlags, compared as one number. Two mode bits
   together make an unassigned value, and every unassigned value (0x000001,
   0x020000, 0x400000 among them) copies A. */
#define MUX_MODE_MASK 0x00FFFFFFu
#define MUX_DEFAULT 0x000000u
#define MUX_COPY_B 0x000002u
#define MUX_MERGE_BYTE2_BYTE0 0x000004u
#define MUX_MERGE_HIGH_LOW 0x000008u
#define MUX_MERGE_BYTE0 0x000010u
#define MUX_MERGE_ODD_EVEN 0x000020u
#define MUX_INTERLEAVE 0x000040u
#define MUX_AVERAGE 0x000080u
#define MUX_DIFFERENCE 0x000100u
#define MUX_OVER_UNDER 0x000200u
#define MUX_SIDE_BY_SIDE 0x000400u
#define MUX_SPLIT 0x000800u
#define MUX_MIRROR 0x001000u
/* A second value of MUX_MIRROR with the same effect. */
#define MUX_MIRROR2 0x002000u
#define MUX_MATCH_GATE 0x004000u
#define MUX_CROSSFADE 0x008000u
#define MUX_WIPE 0x010000u
#define MUX_CHECKER 0x040000u
#define MUX_BLOCK_CHECKER 0x080000u
#define MUX_TWO_UP 0x100000u
#define MUX_CROP_PAIR 0x200000u
#define MUX_CHANNEL_VIEW 0x800000u

/* Flags: bits 24 to 31 of muxFlags, each independent of the mode. */
#define MUXF_GRID 0x01000000u
#define MUXF_FLIP_H_B 0x02000000u
#define MUXF_FLIP_V_B 0x04000000u
#define MUXF_DIVIDER 0x08000000u
#define MUXF_ALT_AXIS 0x10000000u
#define MUXF_FLIP_H_A 0x20000000u
#define MUXF_FLIP_V_A 0x40000000u
#define MUXF_SWAP 0x80000000u

ZR_EXTERN_C_BEGIN

/* Combines frameA and frameB into frameOut. All three are four bytes a
   pixel and share width, height and pitch (bytes a row). Flip flags flip
   the sources in place, and they stay flipped. sizeA and sizeB are the
   byte counts of the two copy modes; sizeOut is never read. Nothing is
   validated. Returns 0. */
ZR_EXPORT int32_t ZrDraw_DisplayMuxRGBA(uint32_t* frameA, uint32_t sizeA, uint32_t* frameB, uint32_t sizeB,
                                        uint32_t* frameOut, uint32_t sizeOut, uint32_t muxFlags,
                                        uint32_t wipeCode, uint32_t mixPosition, uint32_t mixLevel,
                                        uint32_t splitX, uint32_t splitY, uint32_t gridMode,
                                        uint32_t gridStepX, uint32_t gridStepY, uint32_t width,
                                        uint32_t height, uint32_t pitch);

ZR_EXTERN_C_END

#ifdef __cplusplus
/* dst = (dst * weightDst + src * weightSrc + 32768) >> 16 for each byte of
   a width by height plane, in 32-bit arithmetic that wraps; the low eight
   bits are stored, so a sum above 255 loses its high bits. Weights are
   16.16 (65536 is 1.0); pitches may be negative. Width or height below 1
   does nothing. */
ZR_EXPORT void weigh_plane(uint8_t* dst, const uint8_t* src, int32_t dstPitch, int32_t srcPitch,
                           int32_t width, int32_t height, int32_t weightSrc, int32_t weightDst);
#endif

#endif
