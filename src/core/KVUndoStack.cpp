#include "core/KVUndoStack.h"

#include <memory>

namespace {

constexpr size_t mostSteps = 100;

} // namespace

KVUndoStack &KVUndoStack::shared() {
    static KVUndoStack stack;
    return stack;
}

void KVUndoStack::push(Step step) {
    _message = step.message;
    _steps.push_back(std::move(step));
    if (_steps.size() > mostSteps) _steps.pop_front();
    _announce();
}

bool KVUndoStack::undo() {
    if (_steps.empty()) return false;
    const Step step = std::move(_steps.back());
    _steps.pop_back();
    _message.clear();
    const bool isUndone = step.undo();
    _announce();
    return isUndone;
}

void KVUndoStack::clear() {
    _steps.clear();
    _message.clear();
    _announce();
}

void KVUndoStack::_announce() {
    KVNotificationCenter::defaultCenter().post(KVUndoStackDidChange, std::shared_ptr<void>());
}
