#pragma once

#include "platform/KVUserQuestions.h"

#include <deque>
#include <functional>
#include <variant>
#include <vector>

/// Answers from a script and remembers what was asked: for tests. A question without a prepared answer gets
/// the one that changes nothing. Main thread.
class KVScriptedQuestions : public KVUserQuestions {
  public:
    std::deque<KVAlertResponse> alertResponses;
    std::deque<QList<QUrl>> openPanelResponses;
    std::deque<std::optional<QUrl>> savePanelResponses;
    std::deque<std::optional<QString>> textPromptResponses;

    std::vector<KVAlert> alerts;
    std::vector<KVOpenPanel> openPanels;
    std::vector<KVSavePanel> savePanels;
    std::vector<KVTextPrompt> textPrompts;

    KVAlertResponse runAlert(const KVAlert &alert) override;
    QList<QUrl> runOpenPanel(const KVOpenPanel &panel) override;
    std::optional<QUrl> runSavePanel(const KVSavePanel &panel) override;
    std::optional<QString> runTextPrompt(const KVTextPrompt &prompt) override;
};
