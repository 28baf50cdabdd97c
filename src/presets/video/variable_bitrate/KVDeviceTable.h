#pragma once

#include "presets/formats/video_track/variable_bitrate/KVH264Format.h"

/// The figures of one device.
struct KVDeviceRow {
    using Resolution = KVVideoFormat::Resolution;
    using Profile = KVH264Format::Profile;
    struct Quantizers {
        qint64 minimum;
        qint64 maximum;
    };
    struct MotionSearch {
        const char *method;
        qint64 range;
    };

    const char *name;
    Resolution limits;      ///< Pixels.
    Resolution mpeg4Limits; ///< With MPEG-4; the same where the device makes no difference.
    qint64 bitrate;         ///< Kilobits per second.
    qint64 maxBitrate;
    bool supportsSurroundSound;
    double bitrateMultiplier;
    Profile profile;
    qint64 level;
    Quantizers quantizers;
    Quantizers mpeg4Quantizers;
    MotionSearch motionSearch;
};

/// One line for each device. Each line's class stands in KVDevicePresets.h.
namespace KVDeviceTable {

using enum KVH264Format::Profile;

inline constexpr KVDeviceRow::MotionSearch umh{"umh", 7}, hex{"hex", 16};

// clang-format off
//                                         limits        MPEG-4 limits bitrates  surround factor profile level quantizers MPEG-4  search
inline constexpr KVDeviceRow
    iPod       {"iPod",         {320, 240},   {320, 240},  500, 768,   false, 0.5,  baseline, 13, {5, 23},  {5, 23},  umh},
    iPodNano   {"iPod Nano",    {376, 240},   {376, 240},  400, 768,   false, 0.5,  baseline, 13, {5, 31},  {5, 31},  umh},
    iPodNano5G {"iPod Nano 5G", {320, 240},   {320, 240},  400, 768,   false, 0.5,  baseline, 13, {5, 31},  {5, 31},  umh},
    iPhone     {"iPhone",       {480, 320},   {480, 320},  700, 900,   false, 0.75, baseline, 13, {10, 51}, {10, 51}, hex},
    iPhone4    {"iPhone 4",     {960, 640},   {720, 432},  1000, 1800, false, 1.0,  baseline, 31, {21, 41}, {5, 31},  umh},
    iPhone5    {"iPhone 5",     {960, 640},   {720, 432},  1000, 1800, false, 1.0,  baseline, 31, {21, 41}, {5, 31},  umh},
    iPhone5S   {"iPhone 5S",    {1920, 1080}, {640, 480},  1200, 2100, false, 1.0,  baseline, 42, {21, 41}, {5, 31},  umh},
    iPhone5C   {"iPhone 5C",    {1920, 1080}, {640, 480},  1200, 2100, false, 1.0,  baseline, 42, {21, 41}, {5, 31},  umh},
    iPhoneSE   {"iPhone SE",    {1920, 1080}, {640, 480},  1200, 2100, false, 1.0,  baseline, 42, {21, 41}, {5, 31},  umh},
    iPhone6    {"iPhone 6",     {1920, 1080}, {720, 432},  1600, 2200, false, 1.0,  baseline, 41, {21, 41}, {5, 31},  umh},
    iPhone6S   {"iPhone 6S",    {1920, 1080}, {720, 432},  1600, 2200, false, 1.0,  baseline, 41, {21, 41}, {5, 31},  umh},
    iPhone7    {"iPhone 7",     {1920, 1080}, {720, 432},  1600, 2200, false, 1.0,  baseline, 41, {21, 41}, {5, 31},  umh},
    iPad       {"iPad",         {1024, 768},  {1024, 768}, 1000, 1800, false, 1.0,  baseline, 31, {20, 35}, {20, 35}, umh},
    iPad3      {"iPad 3",       {1920, 1080}, {720, 432},  1000, 1800, false, 1.2,  baseline, 41, {21, 51}, {21, 51}, hex},
    appleTV    {"AppleTV",      {1280, 720},  {720, 432},  1000, 1800, true,  1.0,  baseline, 31, {21, 51}, {21, 51}, umh},
    appleTV2   {"AppleTV 2",    {1280, 720},  {720, 432},  1000, 1800, true,  1.0,  baseline, 31, {21, 51}, {21, 51}, hex},
    appleTV3   {"AppleTV 3",    {1920, 1080}, {720, 432},  1000, 1800, true,  1.2,  baseline, 41, {21, 51}, {21, 51}, hex},
    appleTV4   {"AppleTV 4",    {1920, 1080}, {640, 480},  1200, 2000, true,  1.4,  baseline, 42, {21, 51}, {21, 51}, hex},
    appleTV4K  {"AppleTV 4K",   {3840, 2160}, {640, 480},  1200, 2000, true,  1.4,  main,     42, {21, 51}, {21, 51}, hex},
    roku       {"Roku TV",      {1920, 1080}, {640, 480},  1200, 2000, true,  1.4,  baseline, 42, {21, 51}, {21, 51}, hex},
    psp        {"PSP",          {480, 272},   {480, 272},  1000, 1800, true,  1.0,  baseline, 30, {25, 40}, {25, 40}, {"epzs", 16}};
// clang-format on

} // namespace KVDeviceTable
