#pragma once

#include "kvcore/KVNotificationCenter.h"

class KVConversion;
class KVConversionQueue;

/// What conversions and their queues tell everyone. Posted on the main thread. They stand here so that the
/// process-wide records can listen without knowing a queue.
inline constexpr KVNotificationName<KVConversion> ConversionDidStart{"KVConversionDidStartNotification"};
inline constexpr KVNotificationName<KVConversion> ConversionDidFinish{"KVConversionDidFinishNotification"};

inline constexpr KVNotificationName<KVConversion> ConversionQueueDidAddConversion{
    "KVConversionQueueDidAddConversionNotification"};
inline constexpr KVNotificationName<KVConversion> ConversionQueueWillRemoveConversion{
    "KVConversionQueueWillRemoveConversionNotification"};
inline constexpr KVNotificationName<KVConversionQueue> ConversionQueueDidStart{
    "KVConversionQueueDidStartNotification"};
inline constexpr KVNotificationName<KVConversionQueue> ConversionQueueDidFinish{
    "KVConversionQueueDidFinishNotification"};
inline constexpr KVNotificationName<void> ConversionQueueWasAffectedByAppleScript{
    "KVConversionQueueWasAffectedByAppleScriptNotification"};
