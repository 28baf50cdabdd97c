#pragma once

#include <QString>
#include <QUrl>

/// Names of files as the user types them.
namespace KVInputPath {

/// The absolute path without ".", needless ".." and slashes. Links are not resolved, so that outputs stand
/// beside the name that the user knows. Asked before the program changes its working directory.
QString absolute(const QString &path);

QUrl url(const QString &path);

} // namespace KVInputPath
