#include "conversion/conversions/KVDVDAuthoringDocument.h"

#include <pugixml.hpp>

#include <sstream>

const QString &KVDVDAuthoringDocument::chapters() {
    static const QString chapters = [] {
        QString list = "0";
        for (int minutes = 5; minutes <= 18 * 60; minutes += 5)
            list += QString(",%1:%2:00").arg(minutes / 60).arg(minutes % 60, 2, 10, QChar('0'));
        return list;
    }();
    return chapters;
}

QByteArray KVDVDAuthoringDocument::forFiles(const QList<QUrl> &files) {
    pugi::xml_document document;
    auto root = document.append_child("dvdauthor");
    root.append_child("vmgm");
    auto titles = root.append_child("titleset").append_child("titles");
    for (const QUrl &file : files) {
        auto vob = titles.append_child("pgc").append_child("vob");
        vob.append_attribute("chapters") = chapters().toUtf8().constData();
        vob.append_attribute("file") = file.toLocalFile().toUtf8().constData();
    }
    std::ostringstream text;
    document.save(text);
    return QByteArray::fromStdString(text.str());
}
