#include "main_ui/KVWindowTestCase.h"

#include "core/KVUndoStack.h"
#include "support/KVTestMedia.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

void KVWindowTestCase::SetUp() {
    KVPreferences::shared().setBoolean(true, KVPreferences::Key{"KVDidSeeReleaseNotes1202"});
    application = KVKalvoraApplication::create();
    KVUserQuestion::setResponder(questions);
    _tester = std::make_unique<QAbstractItemModelTester>(
        &model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    application->launch({});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
}

void KVWindowTestCase::TearDown() {
    KVConversionQueue::cancelAllAndWait(5);
    _tester.reset();
    application.reset();
    KVUndoStack::shared().clear();
    for (const auto &queue : KVConversionQueue::allQueues())
        queue->setConversions({});
}

void KVWindowTestCase::drop(const QList<QUrl> &urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &enter);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &event);
}

bool KVWindowTestCase::dragRow(const QModelIndex &row, const QModelIndex &target, double height) {
    QMimeData data;
    data.setData("kZRQueueTableViewDragType", QByteArray::number(row.row()));
    model().draggedRow = row.row();
    const QRect rect = table().visualRect(target);
    const QPoint point(rect.center().x(), rect.top() + qRound(height * (rect.height() - 1)));
    QDragEnterEvent enter(point, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(table().viewport(), &enter);
    QDragMoveEvent move(point, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(table().viewport(), &move);
    if (move.isAccepted()) {
        QDropEvent event(point, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(table().viewport(), &event);
    }
    model().draggedRow = -1;
    return move.isAccepted();
}

void KVWindowTestCase::click(const QPoint &point) {
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, point);
}

QUrl KVWindowTestCase::tone(const QString &name, double seconds) {
    return QUrl::fromLocalFile(KVTestMedia::tone(path(name), seconds));
}

QModelIndex KVWindowTestCase::rowOf(const QString &title) {
    for (int row = 0; row < model().rowCount(); ++row)
        if (model().index(row).data().toString() == title) return model().index(row);
    return {};
}

QString KVWindowTestCase::statusOf(const QString &title) {
    return rowOf(title).data(KVQueueTableModel::statusRole).toString();
}

KVConversionState KVWindowTestCase::stateOf(const QString &title) {
    return KVConversionState(rowOf(title).data(KVQueueTableModel::stateRole).toInt());
}

QStringList KVWindowTestCase::titles() {
    QStringList titles;
    for (int row = 0; row < model().rowCount(); ++row)
        titles += model().index(row).data().toString();
    return titles;
}

bool KVWindowTestCase::waitForRows(int count) {
    return runUntil([&] { return model().rowCount() == count; });
}

bool KVWindowTestCase::waitForProgress(const QString &title) {
    return runUntil([&] { return rowOf(title).data(KVQueueTableModel::progressRole).toDouble() > 0; });
}

bool KVWindowTestCase::waitUntilIdle() {
    return runUntil([] { return !KVConversionQueue::isAnyQueueWorking(); });
}
