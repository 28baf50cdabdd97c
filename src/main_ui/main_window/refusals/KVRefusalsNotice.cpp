#include "main_ui/main_window/refusals/KVRefusalsNotice.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVMainWindow.h"
#include "main_ui/main_window/KVNoticeBar.h"

#include <QPushButton>

KVRefusalsNotice::KVRefusalsNotice(KVMainWindow &window, std::shared_ptr<KVIntakeRefusals> refusals,
                                   std::function<void(const QUrl &)> addDisc)
    : QObject(&window)
    , _window(window)
    , _refusals(std::move(refusals))
    , _addDisc(std::move(addDisc))
    , _bar(new KVNoticeBar(QStringLiteral("failed"))) {
    _window.addNoticeBar(_bar);
    _discButton =
        _bar->addButton(KVLocalizationCenter::localized("Add the Disc"), [this] { _addOnlyDisc(); });
    _bar->addButton(KVLocalizationCenter::localized("Show..."), [this] { _show(); });
    connect(_bar, &KVNoticeBar::closed, this, [this] { _refusals->clear(); });
    _observation = KVNotificationCenter::defaultCenter().addObserver<KVIntakeRefusals>(
        IntakeRefusalsDidChange, [this](const auto &) { _update(); }, _refusals);
}

void KVRefusalsNotice::_update() {
    // The list asks which of several discs is meant.
    _discButton->setVisible(_refusals->discs().size() == 1);
    _bar->setNotice(_refusals->summary(), _refusals->refusals().isEmpty() && _refusals->discs().isEmpty());
}

void KVRefusalsNotice::_show() {
    if (!_dialog) {
        _dialog = new KVRefusalsDialog(_refusals, _addDisc, &_window);
        _dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    _dialog->show();
    _dialog->raise();
    _dialog->activateWindow();
}

void KVRefusalsNotice::_addOnlyDisc() {
    if (_refusals->discs().size() != 1) return;
    const QUrl disc = _refusals->discs().first();
    _refusals->removeDisc(disc);
    _addDisc(disc);
}
