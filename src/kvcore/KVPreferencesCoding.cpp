#include "kvcore/KVPreferencesCoding.h"

#include "kvcore/KVFatalError.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>

#include <algorithm>
#include <cmath>

namespace {

QJsonObject tagged(const char *tag, const QJsonValue &value) {
    return {{tag, value}};
}

QJsonValue realToJSON(double value) {
    if (std::isnan(value)) return tagged("$real", "nan");
    if (std::isinf(value)) return tagged("$real", value < 0 ? "-inf" : "inf");
    if (std::trunc(value) == value) return tagged("$real", value);
    return value;
}

QJsonValue toJSON(const QVariant &value);

QJsonArray listToJSON(const QVariantList &list) {
    QJsonArray array;
    for (const QVariant &entry : list)
        array.append(toJSON(entry));
    return array;
}

QJsonObject dictionaryToJSON(const QVariantMap &dictionary) {
    QJsonObject object;
    for (auto entry = dictionary.begin(); entry != dictionary.end(); ++entry)
        object.insert(entry.key(), toJSON(entry.value()));
    const bool looksTagged = object.size() == 1 && object.begin().key().startsWith('$');
    return looksTagged ? tagged("$dictionary", object) : object;
}

QJsonValue toJSON(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return QJsonValue::Null;
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Float:
    case QMetaType::Double:
        return realToJSON(value.toDouble());
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QByteArray:
        return tagged("$data", QString::fromLatin1(value.toByteArray().toBase64()));
    case QMetaType::QDateTime:
        return tagged("$date", value.toDateTime().toUTC().toString(Qt::ISODateWithMs));
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return listToJSON(value.toList());
    case QMetaType::QVariantMap:
        return dictionaryToJSON(value.toMap());
    default:
        KVFatalError(QStringLiteral("The preference store takes no value of type \"%1\".")
                         .arg(QString::fromLatin1(value.typeName())));
    }
}

QVariant fromJSON(const QJsonValue &value);

QVariantMap dictionaryFromJSON(const QJsonObject &object) {
    QVariantMap dictionary;
    for (auto entry = object.begin(); entry != object.end(); ++entry)
        dictionary.insert(entry.key(), fromJSON(entry.value()));
    return dictionary;
}

/// Nothing where the content does not suit the tag: then the dictionary is only a dictionary.
QVariant taggedFromJSON(const QString &tag, const QJsonValue &content) {
    if (tag == "$real" && content.isDouble()) return content.toDouble();
    if (tag == "$real" && content == "nan") return std::nan("");
    if (tag == "$real" && content == "inf") return HUGE_VAL;
    if (tag == "$real" && content == "-inf") return -HUGE_VAL;
    if (tag == "$dictionary" && content.isObject()) return dictionaryFromJSON(content.toObject());
    if (tag == "$data" && content.isString()) {
        const auto data = QByteArray::fromBase64Encoding(content.toString().toLatin1(),
                                                         QByteArray::AbortOnBase64DecodingErrors);
        if (data) return *data;
    }
    if (tag == "$date" && content.isString()) {
        const QDateTime date = QDateTime::fromString(content.toString(), Qt::ISODateWithMs);
        if (date.isValid()) return date;
    }
    return {};
}

/// True where a value would come back from the file as it is. Long lists are stored often.
bool isNormalized(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return true;
    case QMetaType::QDateTime: {
        const QDateTime date = value.toDateTime();
        constexpr int lastYear = 9999;
        return date.isValid() && date.timeSpec() == Qt::UTC && date.date().year() > 0 &&
               date.date().year() <= lastYear;
    }
    case QMetaType::QVariantList:
        return std::ranges::all_of(value.toList(), isNormalized);
    case QMetaType::QVariantMap:
        return std::ranges::all_of(value.toMap(), isNormalized);
    default:
        return false;
    }
}

QVariant fromJSON(const QJsonValue &value) {
    if (value.isArray()) {
        QVariantList list;
        for (const auto &entry : value.toArray())
            list.append(fromJSON(entry));
        return list;
    }
    if (!value.isObject()) return value.isNull() ? QVariant() : value.toVariant();

    const QJsonObject object = value.toObject();
    if (object.size() == 1) {
        QVariant content = taggedFromJSON(object.begin().key(), object.begin().value());
        if (content.isValid()) return content;
    }
    return dictionaryFromJSON(object);
}

} // namespace

QByteArray KVPreferencesCoding::encode(const QVariantMap &values) {
    QJsonObject object;
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        object.insert(entry.key(), toJSON(entry.value()));
    return QJsonDocument(object).toJson();
}

std::optional<QVariantMap> KVPreferencesCoding::decode(const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject()) return {};
    return dictionaryFromJSON(document.object());
}

QVariant KVPreferencesCoding::normalized(const QVariant &value) {
    return isNormalized(value) ? value : fromJSON(toJSON(value));
}
