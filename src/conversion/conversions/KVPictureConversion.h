#pragma once

#include "conversion/conversions/KVConversion.h"

#include <stop_token>

/// Converts one still picture within the program: no child, no progress inside the one task, no pause. A
/// cancel takes effect only before the task starts; at the end of the program the task ends as well.
class KVPictureConversion : public KVConversion {
  public:
    using KVConversion::KVConversion;

    bool performTaskNumber(int number) override;
    /// There is no child: ends the work in the program.
    void killChildren() override { _stop.request_stop(); }

  private:
    std::optional<QUrl> _destinationFolder(const KVMediaFile &file) const;

    std::stop_source _stop;
};
