#pragma once

#include "controllers/KVIntakeRefusals.h"

#include <QDialog>
#include <QTimer>

#include <functional>

class QPushButton;
class QTreeWidget;

/// The list of the files that were not added: name, folder and reason. Not modal; follows the list while it
/// is open. When the user closes it, the list is cleared.
class KVRefusalsDialog : public QDialog {
    Q_OBJECT

  public:
    /// `addDisc` is called with the VIDEO_TS folder of a disc that the user wants to add.
    KVRefusalsDialog(std::shared_ptr<KVIntakeRefusals> refusals, std::function<void(const QUrl &)> addDisc,
                     QWidget *parent = nullptr);

    /// Ends by clearing the list.
    void done(int result) override;

  private:
    void _fill();
    void _updateButtons();
    void _addSelectedDisc();
    void _copy() const;

    const std::shared_ptr<KVIntakeRefusals> _refusals;
    const std::function<void(const QUrl &)> _addDisc;
    QTreeWidget *_list;
    QPushButton *_discButton;
    QTimer _filling; ///< Gathers many changes into one update.
    KVNotificationCenter::Observation _observation;
};
