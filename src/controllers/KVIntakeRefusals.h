#pragma once

#include "controllers/KVIntakeObserver.h"
#include "kvcore/KVNotificationCenter.h"

#include <QHash>
#include <QList>
#include <QSet>

/// What the intake did not take, for a front end that shows it as a list. The intake may report on any
/// thread; everything else is for the main thread.
class KVIntakeRefusals : public KVIntakeObserver, public std::enable_shared_from_this<KVIntakeRefusals> {
  public:
    /// What the user did not get, in the order of the reports; a file that is rejected again appears once,
    /// with its latest reason.
    const QList<KVIntakeRefusal> &refusals() const { return _refusals; }
    /// Members of folders that are no media by their extension.
    const QList<KVIntakeRefusal> &skippedMembers() const { return _skippedMembers; }
    /// The VIDEO_TS folders inside the folders that were added.
    const QList<QUrl> &discs() const { return _discs; }

    bool isEmpty() const { return _refusals.isEmpty() && _skippedMembers.isEmpty() && _discs.isEmpty(); }

    /// One line for the footer: "6 files were not added". Empty if there is nothing to show.
    QString summary() const;
    /// "12 other files in the folders were skipped."; empty if there are none.
    QString skippedText() const;
    /// All entries as text, one on a line: name, folder and reason, separated by tabs.
    QString text() const;

    void clear();
    /// The disc is being added: it and what was rejected inside its folder are no longer listed.
    void removeDisc(const QUrl &videoFolder);

    void intakeDidRefuse(const KVIntakeRefusal &refusal) override;
    void intakeDidMeetDisc(const QUrl &videoFolder) override;

  private:
    void _add(const KVIntakeRefusal &refusal);
    void _addDisc(const QUrl &videoFolder);
    void _postChange();

    QList<KVIntakeRefusal> _refusals;
    QHash<QString, qsizetype> _indexByPath; ///< Into `_refusals`.
    QList<KVIntakeRefusal> _skippedMembers;
    QSet<QString> _skippedPaths; ///< Of `_skippedMembers`.
    QList<QUrl> _discs;
};

/// Posted on the main thread when the lists have changed.
inline constexpr KVNotificationName<KVIntakeRefusals> IntakeRefusalsDidChange{"IntakeRefusalsDidChange"};
