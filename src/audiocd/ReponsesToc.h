#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/LecteurCD.h"

// Answers of a drive to READ TOC/PMA/ATIP (MMC), with MSF addresses, and the texts that are made of them.

inline constexpr size_t TailleReponseToc = 804;      // header of four bytes, a hundred descriptors of eight
inline constexpr size_t TailleReponseCdText = 4612;  // header of four bytes, 256 packs of eighteen
using ReponseToc = std::array<uint8_t, TailleReponseToc>;
using ReponseCdText = std::array<uint8_t, TailleReponseCdText>;

inline constexpr LecteurCD::Cdb CommandeToc{0x43, 0x02, 0x00, 0, 0, 0, 0, 0x03, 0x24, 0};
inline constexpr LecteurCD::Cdb CommandeCdText{0x43, 0x02, 0x05, 0, 0, 0, 0, 0x12, 0x04, 0};

// The TOC text of the answer; "" when it tells of no disc that can be used, nothing when its track numbers go
// backwards.
std::optional<std::string> BuildTocText(std::span<const uint8_t, TailleReponseToc> reponse);

// "interprète|album|||message|titre 1|titre 2|...|"; "" without any text. The bytes are ANSI whatever the disc says of
// them, and blocks of several languages are read as one.
std::string BuildCdText(std::span<const uint8_t, TailleReponseCdText> reponse);
