#pragma once

#include "platform/KVUserQuestions.h"

class KVConsole;

/// Answers the engine's questions for a command: on the terminal where there is one, else with what changes
/// nothing. An alert that leaves no choice is told in one line, unless the command hears of it in another
/// way. Main thread.
class KVCommandQuestions : public KVUserQuestions {
  public:
    /// Makes this the one who answers. The console has to outlive the questions.
    static void plugIn(KVConsole &console, bool isAskingAllowed);

    KVCommandQuestions(KVConsole &console, std::unique_ptr<KVUserQuestions> responder);

    KVAlertResponse runAlert(const KVAlert &alert) override;
    QList<QUrl> runOpenPanel(const KVOpenPanel &panel) override;
    std::optional<QUrl> runSavePanel(const KVSavePanel &panel) override;
    std::optional<QString> runTextPrompt(const KVTextPrompt &prompt) override;

  private:
    KVConsole &_console;
    std::unique_ptr<KVUserQuestions> _responder;
};
