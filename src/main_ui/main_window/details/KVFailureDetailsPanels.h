#pragma once

#include "controllers/KVConversionTableRow.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <memory>

class KVFailureDetailsPanel;

/// The open panels with details, one for a row at most. A panel goes with its row. Main thread.
class KVFailureDetailsPanels : public QObject {
    Q_OBJECT

  public:
    /// `window` owns this object and the panels.
    KVFailureDetailsPanels(std::shared_ptr<KVConversionRowServices> services, QWidget *window);

    void show(const std::shared_ptr<KVConversion> &conversion);

  private:
    void _tryAgain(const std::shared_ptr<KVConversion> &conversion, KVFailureRetry retry) const;

    std::shared_ptr<KVConversionRowServices> _services;
    QWidget *_window;
    QHash<const KVConversion *, QPointer<KVFailureDetailsPanel>> _panels;
    KVNotificationCenter::Observation _rowWillGo;
};
