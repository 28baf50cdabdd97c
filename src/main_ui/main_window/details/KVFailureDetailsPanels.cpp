#include "main_ui/main_window/details/KVFailureDetailsPanels.h"

#include "controllers/KVFailureDetails.h"
#include "main_ui/main_window/details/KVFailureDetailsPanel.h"

#include <QWidget>

KVFailureDetailsPanels::KVFailureDetailsPanels(std::shared_ptr<KVConversionRowServices> services,
                                               QWidget *window)
    : QObject(window)
    , _services(std::move(services))
    , _window(window)
    , _rowWillGo(KVNotificationCenter::defaultCenter().addObserver<KVConversion>(
          ConversionQueueWillRemoveConversion, [this](const auto &conversion) {
              if (const auto panel = _panels.take(conversion.get())) panel->close();
          })) {}

void KVFailureDetailsPanels::show(const std::shared_ptr<KVConversion> &conversion) {
    auto &panel = _panels[conversion.get()];
    if (!panel) {
        panel = new KVFailureDetailsPanel(KVFailureDetails::of(*conversion), _window);
        connect(
            panel, &KVFailureDetailsPanel::retryRequested, this,
            [this, conversion](KVFailureRetry retry) { _tryAgain(conversion, retry); }, Qt::QueuedConnection);
    }
    panel->show();
    panel->raise();
    panel->activateWindow();
}

void KVFailureDetailsPanels::_tryAgain(const std::shared_ptr<KVConversion> &conversion,
                                       KVFailureRetry retry) const {
    const KVConversionTableRow row(conversion, _services);
    switch (retry) {
    case KVFailureRetry::withoutSubtitles:
        return row.tryAgainWithoutSubtitles();
    case KVFailureRetry::inAnotherFolder:
        return row.tryAgainInAnotherFolder();
    case KVFailureRetry::none:
    case KVFailureRetry::again:
        return row.tryAgain();
    }
}
