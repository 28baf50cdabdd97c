#include "main_ui/KVDebugPane.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr int mostLines = 5000;

} // namespace

KVDebugPane::KVDebugPane(QWidget *parent)
    : QWidget(parent, Qt::Window)
    , _text(new QPlainTextEdit) {
    setWindowTitle(KVLocalizationCenter::localized("Debug Log"));
    resize(760, 420);
    _text->setReadOnly(true);
    _text->setMaximumBlockCount(mostLines);
    _text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    _text->setAccessibleName(windowTitle());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_text);

    KVSetLogSink([text = QPointer(_text)](const QString &line) {
        KVMainThread::async([text, line] {
            if (QPlainTextEdit *alive = text.data()) alive->appendPlainText(line);
        });
    });
}

KVDebugPane::~KVDebugPane() {
    KVSetLogSink({});
}
