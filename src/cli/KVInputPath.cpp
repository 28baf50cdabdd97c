#include "cli/KVInputPath.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

QString KVInputPath::absolute(const QString &path) {
    const QString whole = QDir::isAbsolutePath(path) ? path : QDir::currentPath() + '/' + path;
    QStringList components;
    for (const QString &component : whole.split(u'/', Qt::SkipEmptyParts)) {
        if (component == QLatin1String(".")) continue;
        // What lies above the target of a link is not what lies above the link.
        const bool isStepBack = component == QLatin1String("..") &&
                                (components.isEmpty() || components.last() != QLatin1String("..")) &&
                                !QFileInfo('/' + components.join(u'/')).isSymLink();
        if (!isStepBack)
            components.append(component);
        else if (!components.isEmpty())
            components.removeLast();
    }
    return '/' + components.join(u'/');
}

QUrl KVInputPath::url(const QString &path) {
    return QUrl::fromLocalFile(absolute(path));
}
