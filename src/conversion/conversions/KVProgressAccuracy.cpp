#include "conversion/conversions/KVProgressAccuracy.h"

void KVProgressAccuracy::addSample(double position, double now) {
    double elapsed = now - lastSampleDate;
    if (elapsed == 0) elapsed = 1; // two samples within one tick of the clock
    const double speed = (position - secondsAtLastSample) / elapsed;
    ++numberOfSamples;
    lastSampleDate = now;
    totalSecondRatio += speed;
    secondsAtLastSample = position;
}

double KVProgressAccuracy::estimatedTime(double position, double total) const {
    return (total - position) / (totalSecondRatio / numberOfSamples);
}
