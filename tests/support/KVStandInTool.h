#pragma once

#include <QByteArray>
#include <QString>

/// A shell script in the place of the external tool, among the application's resources, until the end of the
/// object. It stands in the folder that the script itself knows as "$here".
class KVStandInTool {
  public:
    /// `folder` is made and gets the script and the other resources.
    KVStandInTool(const QString &folder, const QByteArray &script);
    ~KVStandInTool();
    KVStandInTool(const KVStandInTool &) = delete;
    KVStandInTool &operator=(const KVStandInTool &) = delete;

    QString path() const { return _folder + "/ffmpeg"; }
    QString path(const QString &name) const { return _folder + "/" + name; }

    /// Another script under the same name.
    void replace(const QByteArray &script) const;

  private:
    QString _folder;
    QString _previousDirectory;
};
