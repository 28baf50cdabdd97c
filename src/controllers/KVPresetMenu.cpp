#include "controllers/KVPresetMenu.h"

#include "controllers/KVRowQuestions.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "presets/KVPresetRegistry.h"
#include "queues/KVRowEdits.h"

#include <algorithm>

namespace {

bool haveAll(const KVConversionQueue::List &rows, const std::shared_ptr<KVPreset> &preset) {
    return std::ranges::all_of(rows, [&](const auto &row) { return row->customPreset() == preset; });
}

QString reasonAgainst(const KVConversionQueue::List &rows, const std::shared_ptr<KVPreset> &preset) {
    for (const auto &row : rows)
        if (QString reason = KVRowEdits::reasonAgainstPreset(*row, preset); !reason.isEmpty()) return reason;
    return {};
}

} // namespace

KVMenuItem KVPresetMenu::itemForRows(const KVConversionQueue::List &rows) {
    const auto queue = std::dynamic_pointer_cast<KVConversionQueue>(rows.first()->queue());
    if (!queue) KVFatalError("A row's conversion has no queue.");
    const auto selected = rows.first()->customPreset();
    const bool haveSame = haveAll(rows, selected);
    const bool hasFiles =
        std::ranges::any_of(rows, [](const auto &row) { return !row->mediaFiles().isEmpty(); });
    const auto entries = KVPreset::presetMenuForType(
        queue->mediaFileType(), haveSame ? selected : nullptr,
        [hasFiles](const KVPreset &preset) { return !hasFiles || preset.supportsStitching(); });

    const auto select = [rows](const std::shared_ptr<KVPreset> &preset) {
        return [rows, preset] {
            // They may have started while the menu was open.
            if (!KVRowEdits::shared().setPreset(rows, preset))
                KVRowQuestions::explain(reasonAgainst(rows, preset));
        };
    };
    KVMenuItem item{.title = KVLocalizationCenter::localized("Preset")};
    KVMenuItem standard{.title = KVLocalizationCenter::localized("Default"),
                        .action = select(nullptr),
                        .isOn = haveSame && !selected};
    standard.disableBecause(reasonAgainst(rows, nullptr));
    item.submenu = {std::move(standard), KVMenuItem::separator()};
    for (const KVPresetMenuItem &entry : entries) {
        if (entry.isSeparator)
            item.submenu.push_back(KVMenuItem::separator());
        else
            item.submenu.push_back({.title = entry.title,
                                    .action = select(entry.preset),
                                    .toolTip = entry.toolTip,
                                    .isOn = entry.isOn});
    }
    return item;
}
