// The 16 colours that options are drawn in.
#pragma once

#include "JW_Base/Include/JW_Types.h"

// As 0x00BBGGRR.
constexpr u32 kVotePalette[16] = {
    0x00FFE4, 0xA52949, 0xFB4DFB, 0xFFFF00, 0xFA4848, 0xFDF4AA, 0x746EFD, 0xFE8E2A,
    0x00FF00, 0xA3AEFC, 0xFB709B, 0x84BB1A, 0xE4BCFD, 0x5ABEFD, 0xFF0000, 0x0000FF,
};

// More options than colours repeat them in order.
constexpr u32 VoteColorOf(int index) {
  return kVotePalette[static_cast<u32>(index) % 16];
}
