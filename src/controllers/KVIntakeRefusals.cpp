#include "controllers/KVIntakeRefusals.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "platform/KVFileManager.h"

namespace {

QString counted(const char *one, const char *several, qsizetype count) {
    return KVLocalizationCenter::localized(count == 1 ? one : several, {count});
}

QString lineFor(const QString &path, const QString &reason) {
    const QUrl url = QUrl::fromLocalFile(path);
    return KVFileManager::lastPathComponent(url) + '\t' +
           KVFileManager::deletingLastPathComponent(url).toLocalFile() + '\t' + reason + '\n';
}

} // namespace

QString KVIntakeRefusals::summary() const {
    if (!_refusals.isEmpty()) {
        const QString count = counted("1 file was not added", "%ld files were not added", _refusals.size());
        return _skippedMembers.isEmpty() ? count : count + QStringLiteral(" \u00b7 ") + skippedText();
    }
    if (!_discs.isEmpty())
        return counted("The folder holds a DVD", "The folders hold %ld DVDs", _discs.size());
    return skippedText();
}

QString KVIntakeRefusals::skippedText() const {
    if (_skippedMembers.isEmpty()) return {};
    return counted("1 other file in the folders was skipped", "%ld other files in the folders were skipped",
                   _skippedMembers.size());
}

QString KVIntakeRefusals::text() const {
    QString text;
    for (const QUrl &disc : _discs)
        text += lineFor(disc.toLocalFile(), KVLocalizationCenter::localized("This folder is a DVD."));
    for (const KVIntakeRefusal &refusal : _refusals + _skippedMembers)
        text += lineFor(refusal.path, refusal.reason);
    return text;
}

void KVIntakeRefusals::clear() {
    if (isEmpty()) return;
    _refusals.clear();
    _indexByPath.clear();
    _skippedMembers.clear();
    _skippedPaths.clear();
    _discs.clear();
    _postChange();
}

void KVIntakeRefusals::removeDisc(const QUrl &videoFolder) {
    const QString folder = videoFolder.toLocalFile() + '/';
    const auto isInside = [&](const KVIntakeRefusal &refusal) { return refusal.path.startsWith(folder); };
    _discs.removeAll(videoFolder);
    _skippedMembers.removeIf(isInside);
    _skippedPaths.removeIf([&](const QString &path) { return path.startsWith(folder); });
    _refusals.removeIf(isInside);
    _indexByPath.clear();
    for (qsizetype index = 0; index < _refusals.size(); ++index)
        _indexByPath.insert(_refusals.at(index).path, index);
    _postChange();
}

void KVIntakeRefusals::intakeDidRefuse(const KVIntakeRefusal &refusal) {
    KVMainThread::async([weak = weak_from_this(), refusal] {
        if (const auto self = weak.lock()) self->_add(refusal);
    });
}

void KVIntakeRefusals::intakeDidMeetDisc(const QUrl &videoFolder) {
    KVMainThread::async([weak = weak_from_this(), videoFolder] {
        if (const auto self = weak.lock()) self->_addDisc(videoFolder);
    });
}

void KVIntakeRefusals::_add(const KVIntakeRefusal &refusal) {
    if (refusal.isExpected()) {
        if (_skippedPaths.contains(refusal.path)) return;
        _skippedPaths.insert(refusal.path);
        _skippedMembers.append(refusal);
    } else if (const auto known = _indexByPath.constFind(refusal.path); known != _indexByPath.cend()) {
        _refusals[*known] = refusal;
    } else {
        _indexByPath.insert(refusal.path, _refusals.size());
        _refusals.append(refusal);
    }
    _postChange();
}

void KVIntakeRefusals::_addDisc(const QUrl &videoFolder) {
    if (_discs.contains(videoFolder)) return;
    _discs.append(videoFolder);
    _postChange();
}

void KVIntakeRefusals::_postChange() {
    KVNotificationCenter::defaultCenter().post(IntakeRefusalsDidChange, shared_from_this());
}
