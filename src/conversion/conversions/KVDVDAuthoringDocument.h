#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

/// The description of a disc that `dvdauthor` reads: one title set, one program chain for each file, no
/// menus.
namespace KVDVDAuthoringDocument {

/// A chapter at the start and every 5 minutes up to 18 hours, whatever the length of the film.
const QString &chapters();

/// The XML document.
QByteArray forFiles(const QList<QUrl> &files);

} // namespace KVDVDAuthoringDocument
