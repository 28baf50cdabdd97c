#pragma once

#include "controllers/KVIntakeRefusals.h"
#include "main_ui/main_window/refusals/KVRefusalsDialog.h"

#include <QObject>
#include <QPointer>

#include <functional>

class KVMainWindow;
class KVNoticeBar;

/// The line of the main window that counts the files that were not added, and opens their list. Main thread.
class KVRefusalsNotice : public QObject {
    Q_OBJECT

  public:
    /// `addDisc` is called with the VIDEO_TS folder of a disc that the user wants to add.
    KVRefusalsNotice(KVMainWindow &window, std::shared_ptr<KVIntakeRefusals> refusals,
                     std::function<void(const QUrl &)> addDisc);

  private:
    void _update();
    void _show();
    void _addOnlyDisc();

    KVMainWindow &_window;
    const std::shared_ptr<KVIntakeRefusals> _refusals;
    const std::function<void(const QUrl &)> _addDisc;
    KVNoticeBar *_bar;
    QPushButton *_discButton;
    QPointer<KVRefusalsDialog> _dialog;
    KVNotificationCenter::Observation _observation;
};
