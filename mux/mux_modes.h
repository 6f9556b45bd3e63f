// The modes of the mux, each over a whole frame, and the table that maps a
// mode number to one of them.
#ifndef ZR_MUX_MUX_MODES_H
#define ZR_MUX_MUX_MODES_H

#include <cstdint>

#include "mux/mux_call.h"

namespace zr::mux {

// Whole-frame copies and the transition hand-off.
void MuxCopyA(const MuxCall& call);
void MuxCopyB(const MuxCall& call);
void MuxWipe(const MuxCall& call);

// Modes in which an output pixel depends only on the pixels at its place.
void MuxMergeByte2Byte0(const MuxCall& call);
void MuxMergeHighLow(const MuxCall& call);
void MuxMergeByte0(const MuxCall& call);
void MuxMergeOddEven(const MuxCall& call);
void MuxAverage(const MuxCall& call);
void MuxDifference(const MuxCall& call);
void MuxMatchGate(const MuxCall& call);
void MuxCrossfade(const MuxCall& call);
void MuxChannelView(const MuxCall& call);

// Modes that rearrange pixels, rows stepped by pitch.
void MuxInterleave(const MuxCall& call);
void MuxOverUnder(const MuxCall& call);
void MuxSplit(const MuxCall& call);
void MuxMirror(const MuxCall& call);
void MuxChecker(const MuxCall& call);
void MuxBlockChecker(const MuxCall& call);

// Modes that rearrange pixels, rows stepped tightly by 4 times width.
void MuxSideBySide(const MuxCall& call);
void MuxTwoUp(const MuxCall& call);
void MuxCropPair(const MuxCall& call);

// The mode of a mode number (muxFlags AND 0xFFFFFF); every unassigned number
// gives MuxCopyA.
MuxModeFn FindMuxMode(uint32_t mode);

}  // namespace zr::mux

#endif
