#pragma once

#include "platform/KVUserQuestions.h"

#include <QPointer>
#include <QWidget>

/// Asks with real alerts and panels over the main window. Main thread.
class KVWindowQuestions : public KVUserQuestions {
  public:
    /// The window that the questions stand over; may be null.
    explicit KVWindowQuestions(QWidget *window);

    KVAlertResponse runAlert(const KVAlert &alert) override;
    QList<QUrl> runOpenPanel(const KVOpenPanel &panel) override;
    std::optional<QUrl> runSavePanel(const KVSavePanel &panel) override;
    std::optional<QString> runTextPrompt(const KVTextPrompt &prompt) override;

  private:
    QPointer<QWidget> _window;
    QUrl _folder; ///< Where a panel begins that is given none: where the last one ended.
};
