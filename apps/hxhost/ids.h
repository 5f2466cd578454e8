// The ids of hxhost.rc that the code uses.
#pragma once

#include <cstdint>

namespace hxhost {

inline constexpr uint32_t IDS_PAGE_MEASUREMENT = 1;
inline constexpr uint32_t IDS_NOT_INSTALLED = 2;
inline constexpr uint32_t IDS_PAGE_FAILED = 3;
inline constexpr uint32_t IDS_CALL_FAILED = 4;
inline constexpr uint32_t IDS_DISCONNECTED = 10;
inline constexpr uint32_t IDS_CONNECTED = 11;
inline constexpr uint32_t IDS_SUSPENDED = 12;
inline constexpr uint32_t IDS_SAVED = 20;
inline constexpr uint32_t IDS_NOT_CLOSED = 21;
inline constexpr uint32_t IDS_FAULT_READY = 22;
inline constexpr uint32_t IDS_FAULTS_CLEARED = 23;
inline constexpr uint32_t IDS_BAD_TIMES = 24;
inline constexpr uint32_t IDS_BAD_DELAY = 25;
inline constexpr uint32_t IDS_REFUSED = 26;
inline constexpr uint32_t IDS_NOT_SAVED = 27;
inline constexpr uint32_t IDS_MODEL_STAYS = 28;
inline constexpr uint32_t IDS_AWAY = 29;
inline constexpr uint32_t IDS_SLOW_READY = 30;
inline constexpr uint32_t IDS_SLOW_HOW = 31;
inline constexpr uint32_t IDS_FAULT_TEXT = 32;
inline constexpr uint32_t IDS_SLOWLY = 33;
inline constexpr uint32_t IDS_SCALED_DOWN = 34;
inline constexpr uint32_t IDS_TIP_PAGES = 40;
inline constexpr uint32_t IDS_TIP_MODEL = 41;
inline constexpr uint32_t IDS_TIP_MODEL_FIXED = 42;
inline constexpr uint32_t IDS_TIP_SURFACE = 43;
inline constexpr uint32_t IDS_TIP_CONNECTION = 44;
inline constexpr uint32_t IDS_TIP_PLUG = 45;
inline constexpr uint32_t IDS_TIP_PLUGGED = 46;
inline constexpr uint32_t IDS_TIP_UNPLUG = 47;
inline constexpr uint32_t IDS_TIP_UNPLUGGED = 48;
inline constexpr uint32_t IDS_TIP_OPERATION = 49;
inline constexpr uint32_t IDS_TIP_RESULT = 50;
inline constexpr uint32_t IDS_TIP_TIMES = 51;
inline constexpr uint32_t IDS_TIP_DELAY = 52;
inline constexpr uint32_t IDS_TIP_HANG_UP = 53;
inline constexpr uint32_t IDS_TIP_INJECT = 54;
inline constexpr uint32_t IDS_TIP_CLEAR = 55;
inline constexpr uint32_t IDS_TIP_QUESTIONS = 56;
inline constexpr uint32_t IDS_TIP_SAVE = 57;
inline constexpr uint32_t IDS_TIP_NO_PAGE = 58;
inline constexpr uint32_t IDS_TIP_CLOSE = 59;
inline constexpr uint32_t IDS_TIP_DISCARD = 60;
inline constexpr uint32_t IDS_SURFACE_PLANE = 70;
inline constexpr uint32_t IDS_SURFACE_STEPS = 71;
inline constexpr uint32_t IDS_SURFACE_WAVES = 72;
inline constexpr uint32_t IDS_SURFACE_SPHERE = 73;
inline constexpr uint32_t IDS_SURFACE_SHINY = 74;
inline constexpr uint32_t IDS_SURFACE_DARK = 75;
inline constexpr uint32_t IDS_SURFACE_NOTHING = 76;
inline constexpr uint32_t IDS_ON = 100;
inline constexpr uint32_t IDS_OFF = 101;
inline constexpr uint32_t IDS_FAILED = 102;
inline constexpr uint32_t IDS_REPEATED = 103;
inline constexpr uint32_t IDS_LOG_RAISE = 104;
inline constexpr uint32_t IDS_LOG_ACQUIRE = 105;
inline constexpr uint32_t IDS_LOG_RELEASE = 106;
inline constexpr uint32_t IDS_LOG_INITIALISE = 107;
inline constexpr uint32_t IDS_LOG_DISABLE = 108;
inline constexpr uint32_t IDS_LOG_ACTIVATE = 109;
inline constexpr uint32_t IDS_LOG_GLOBAL = 110;
inline constexpr uint32_t IDS_LOG_PREVIEW_ON = 111;
inline constexpr uint32_t IDS_LOG_PREVIEW_OFF = 112;
inline constexpr uint32_t IDS_LOG_EXPOSURE = 113;
inline constexpr uint32_t IDS_LOG_LASER_POWER = 114;
inline constexpr uint32_t IDS_LOG_GAIN = 115;
inline constexpr uint32_t IDS_LOG_AUTOMATIC = 116;
inline constexpr uint32_t IDS_LOG_EDGE_FILTER_3D = 117;
inline constexpr uint32_t IDS_LOG_THRESHOLD = 118;
inline constexpr uint32_t IDS_LOG_EDGE_FILTER = 119;
inline constexpr uint32_t IDS_LOG_INCLINATION = 120;
inline constexpr uint32_t IDS_LOG_REFLECTION_FILTER = 121;
inline constexpr uint32_t IDS_LOG_DETECT_EXPOSURE = 122;
inline constexpr uint32_t IDS_LOG_DETECT_LASER_POWER = 123;
inline constexpr uint32_t IDS_LOG_PROFILES_STORED = 124;
inline constexpr uint32_t IDS_LOG_RECORDING = 125;
inline constexpr uint32_t IDS_LOG_RECORDING_ENDS = 126;
inline constexpr uint32_t IDS_LOG_LOST = 127;
inline constexpr uint32_t IDS_LOG_SHOW = 128;
inline constexpr uint32_t IDS_LOG_SHOW_NO_MORE = 129;
inline constexpr uint32_t IDS_LOG_CLOSE = 130;

inline constexpr uint32_t IDD_HOST = 100;

inline constexpr uint32_t IDC_INTRODUCTION = 1000;
inline constexpr uint32_t IDC_PAGES = 1002;
inline constexpr uint32_t IDC_PAGE_PLACE = 1003;
inline constexpr uint32_t IDC_MODEL = 1010;
inline constexpr uint32_t IDC_SURFACE = 1011;
inline constexpr uint32_t IDC_CONNECTION = 1012;
inline constexpr uint32_t IDC_PLUG = 1013;
inline constexpr uint32_t IDC_UNPLUG = 1014;
inline constexpr uint32_t IDC_OPERATION = 1020;
inline constexpr uint32_t IDC_RESULT = 1021;
inline constexpr uint32_t IDC_TIMES = 1022;
inline constexpr uint32_t IDC_DELAY = 1023;
inline constexpr uint32_t IDC_HANG_UP = 1024;
inline constexpr uint32_t IDC_INJECT = 1025;
inline constexpr uint32_t IDC_CLEAR = 1026;
inline constexpr uint32_t IDC_LOG_GROUP = 1030;
inline constexpr uint32_t IDC_LOG = 1031;
inline constexpr uint32_t IDC_QUESTIONS = 1032;
inline constexpr uint32_t IDC_STATUS = 1040;
inline constexpr uint32_t IDC_DISCARD = 1041;

}  // namespace hxhost
