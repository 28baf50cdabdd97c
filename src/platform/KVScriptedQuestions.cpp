#include "platform/KVScriptedQuestions.h"

#include "platform/KVSilentQuestions.h"

namespace {

template <class Answer, class Fallback>
Answer nextAnswer(std::deque<Answer> &prepared, Fallback fallback) {
    if (prepared.empty()) return fallback();
    Answer answer = std::move(prepared.front());
    prepared.pop_front();
    return answer;
}

} // namespace

KVAlertResponse KVScriptedQuestions::runAlert(const KVAlert &alert) {
    alerts.push_back(alert);
    return nextAnswer(alertResponses, [&] { return KVSilentQuestions().runAlert(alert); });
}

QList<QUrl> KVScriptedQuestions::runOpenPanel(const KVOpenPanel &panel) {
    openPanels.push_back(panel);
    return nextAnswer(openPanelResponses, [&] { return KVSilentQuestions().runOpenPanel(panel); });
}

std::optional<QUrl> KVScriptedQuestions::runSavePanel(const KVSavePanel &panel) {
    savePanels.push_back(panel);
    return nextAnswer(savePanelResponses, [&] { return KVSilentQuestions().runSavePanel(panel); });
}

std::optional<QString> KVScriptedQuestions::runTextPrompt(const KVTextPrompt &prompt) {
    textPrompts.push_back(prompt);
    return nextAnswer(textPromptResponses, [&] { return KVSilentQuestions().runTextPrompt(prompt); });
}
