#pragma once

#include "platform/KVUserQuestions.h"

#include <functional>

/// Nobody can be asked: takes the answer that changes nothing and says so.
class KVSilentQuestions : public KVUserQuestions {
  public:
    /// `say` gets one line for each question: the question and the answer taken. May be empty.
    explicit KVSilentQuestions(std::function<void(const QString &line)> say = {});

    KVAlertResponse runAlert(const KVAlert &alert) override;
    QList<QUrl> runOpenPanel(const KVOpenPanel &panel) override;
    std::optional<QUrl> runSavePanel(const KVSavePanel &panel) override;
    std::optional<QString> runTextPrompt(const KVTextPrompt &prompt) override;

  private:
    void _tell(const QString &question, const QString &answer) const;

    std::function<void(const QString &)> _say;
};
