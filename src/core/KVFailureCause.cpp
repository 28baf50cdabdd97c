#include "core/KVFailureCause.h"

#include "core/KVErrorCenter.h"
#include "kvcore/KVLocalizationCenter.h"

KVFailureCause KVFailureCause::of(const KVConversionError &error) {
    if (!error.reason.isEmpty()) return {.text = error.reason, .remedy = {}};
    return {.text = KVLocalizationCenter::localized("The conversion failed."), .remedy = {}};
}
