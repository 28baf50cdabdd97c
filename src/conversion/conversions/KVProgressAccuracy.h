#pragma once

/// The samples of one run of one task: how fast the tool has been so far. Times are seconds.
struct KVProgressAccuracy {
    double lastSampleDate = 0; ///< Since 1970; the start of the run before the first sample.
    int numberOfSamples = 0;
    double secondsAtLastSample = 0; ///< Position in the media.
    double totalSecondRatio = 0;    ///< Sum of the speeds, each in seconds of media per second of time.

    void addSample(double position, double now);

    /// Time left at the mean of all speeds; nothing is clamped.
    double estimatedTime(double position, double total) const;
};
