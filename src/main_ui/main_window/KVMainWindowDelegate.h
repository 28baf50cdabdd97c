#pragma once

#include <QList>
#include <QUrl>

/// What the main window and its menus ask of the application.
class KVMainWindowDelegate {
  public:
    virtual ~KVMainWindowDelegate() = default;
    virtual void addFiles(const QList<QUrl> &urls) = 0;
    /// The open panel for files and the one for folders.
    virtual void open() = 0;
    virtual void openFolder() = 0;
    /// How many files are still being loaded behind the window.
    virtual int numberOfLoadingFiles() const = 0;
    virtual void start() = 0;
    virtual void pause() = 0;
    virtual void mergeAll() = 0;
    virtual void makeDVD() = 0;
    /// Tags: -1 all queues, 0 video, 1 audio, 2 picture.
    virtual void clearFinishedConversionsInQueue(int tag) = 0;
    virtual void clearInactiveConversionsInQueue(int tag) = 0;
    virtual void openFile(const QUrl &url) = 0;
    virtual void showInFileManager(const QUrl &url) = 0;
    virtual void showReleaseNotes() = 0;
    virtual void showDebugPane() = 0;
    /// Asks to quit; the answer decides whether the application ends.
    virtual void terminate() = 0;
};
