#pragma once

#include "main_ui/KVKalvoraApplication.h"
#include "main_ui/main_window/table_view/KVQueueTableWidget.h"
#include "platform/KVScriptedQuestions.h"
#include "support/KVTestCase.h"

#include <QAbstractItemModelTester>

#include <memory>

/// The real window on the offscreen platform; whatever it asks is answered by a script.
class KVWindowTestCase : public KVTestCase {
  protected:
    void SetUp() override;
    void TearDown() override;

    KVMainWindow &window() { return application->window(); }
    KVQueueTableModel &model() { return window().tableModel(); }
    KVQueueTableWidget &table() { return window().tableWidget(); }

    /// Drops files on the window, as a file manager does.
    void drop(const QList<QUrl> &urls);
    /// Drags a row and lets it go at a height of another row: 0 is its top, 1 its bottom. Answers whether it
    /// was taken.
    bool dragRow(const QModelIndex &row, const QModelIndex &target, double height);
    void click(const QPoint &point);

    QUrl tone(const QString &name, double seconds = 0.3);
    /// Sound that takes a while to encode.
    QUrl longTone(const QString &name) { return tone(name, 2000); }

    QModelIndex rowOf(const QString &title);
    QString statusOf(const QString &title);
    KVConversionState stateOf(const QString &title);
    /// The titles of all rows from the top, group rows too.
    QStringList titles();
    bool waitForRows(int count);
    bool waitForProgress(const QString &title);
    bool waitUntilIdle();

    std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
    std::shared_ptr<KVKalvoraApplication> application;

  private:
    std::unique_ptr<QAbstractItemModelTester> _tester;
};
