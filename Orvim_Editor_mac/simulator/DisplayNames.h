#pragma once

#include "simulator/DisplayFields.h"

#include <array>

namespace orvim {

/// The names that pickers show, in UTF-8; the position of a name is the raw value of its case.
inline constexpr std::array<const char*, 7> displayTypeNames{
    "初期画面", "リップシンク", "ピアノロール", "オシロスコープ", "任意画像表示", "演奏モニタ", "ウォーターフォール",
};
inline constexpr std::array<const char*, 5> colorModeNames{"Default", "GM2", "GS", "XG", "User"};
inline constexpr std::array<const char*, 3> subDisplayNames{"None", "Over", "Clip"};
inline constexpr std::array<const char*, 5> specialModeNames{"None", "Knob", "ErrMsg", "Starting", "FwUpdate"};
inline constexpr std::array<const char*, 4> errorKindNames{"VBUS_LOW", "PSRAM_INIT", "PSRAM_TEST", "DAC"};

/// The names of the window's scales 1 to 3, in this order.
inline constexpr std::array<const char*, 3> windowScaleNames{"100%", "200%", "300%"};

} // namespace orvim
