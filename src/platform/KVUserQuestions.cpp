#include "platform/KVUserQuestions.h"

#include "kvcore/KVMainThread.h"
#include "platform/KVSilentQuestions.h"

namespace {

std::shared_ptr<KVUserQuestions> &responder() { // main thread
    static std::shared_ptr<KVUserQuestions> responder = std::make_shared<KVSilentQuestions>();
    return responder;
}

/// Asks on the main thread and waits. The responder is held meanwhile: a question may outlast its post.
template <class Answer, class Question>
Answer ask(Answer (KVUserQuestions::*operation)(const Question &), const Question &question) {
    Answer answer;
    KVMainThread::syncOrNow([&] {
        const auto asked = responder();
        answer = (asked.get()->*operation)(question);
    });
    return answer;
}

} // namespace

void KVUserQuestion::setResponder(std::shared_ptr<KVUserQuestions> newResponder) {
    responder() = newResponder ? std::move(newResponder) : std::make_shared<KVSilentQuestions>();
}

KVAlertResponse KVUserQuestion::runModalOnMainThread(const KVAlert &alert) {
    return ask(&KVUserQuestions::runAlert, alert);
}

QList<QUrl> KVUserQuestion::runModalOnMainThread(const KVOpenPanel &panel) {
    return ask(&KVUserQuestions::runOpenPanel, panel);
}

std::optional<QUrl> KVUserQuestion::runModalOnMainThread(const KVSavePanel &panel) {
    return ask(&KVUserQuestions::runSavePanel, panel);
}

std::optional<QString> KVUserQuestion::runModalOnMainThread(const KVTextPrompt &prompt) {
    return ask(&KVUserQuestions::runTextPrompt, prompt);
}
